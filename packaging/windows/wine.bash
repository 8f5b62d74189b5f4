# shellcheck shell=bash
# Makes what a program of the package needs under Wine: a prefix of its own, a display, and a driver manager that loads
# the SQLite driver of the package (trial/odbc32.c), with its data source.

begin_wine() {
    local cache=$1
    export WINEPREFIX=${WINEPREFIX:-$cache/wine} WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree=;mshtml=;odbc32=n" TZ=Asia/Shanghai LC_ALL=C.UTF-8
    WINEPATH=$(winepath_of "$cache/root/bin")
    export WINEPATH
    if [ -z "${DISPLAY:-}" ]; then
        wine_display
    fi
    if [ ! -e "$WINEPREFIX/system.reg" ]; then
        wineboot --init >/dev/null 2>&1
        wine winecfg -v win10 >/dev/null 2>&1
    fi
    x86_64-w64-mingw32-gcc-posix -O2 -Wall -shared -o "$WINEPREFIX/drive_c/windows/system32/odbc32.dll" \
        packaging/windows/trial/odbc32.{c,def} -ladvapi32
}

winepath_of() { echo "Z:${1//\//\\}"; }

# Starts an X server that ends with the script.
wine_display() {
    local work number
    work=$(mktemp -d)
    mkfifo "$work/display"
    Xvfb -displayfd 9 -screen 0 "${WINE_SCREEN:-1280x900x24}" -nolisten tcp -noreset 9>"$work/display" 2>/dev/null &
    # shellcheck disable=SC2064 # the current values
    trap "wineserver -k 2>/dev/null || true; kill $! || true; rm -rf $work" EXIT
    read -r number <"$work/display"
    export DISPLAY=:$number
}
