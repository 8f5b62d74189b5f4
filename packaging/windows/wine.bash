# shellcheck shell=bash
# Makes what a program of the package needs under Wine: a prefix of its own, a display, and a driver manager that loads
# the SQLite driver of the package (trial/odbc32.c), with its data source. With WINE_LOCALE=zh_CN the code page of the
# system is 936, as on a Chinese Windows; without it 1252. USER is the name of the user there.

begin_wine() {
    local cache=$1 locale=${WINE_LOCALE:-C}.UTF-8
    export WINEPREFIX=${WINEPREFIX:-$cache/wine${WINE_LOCALE:+-$WINE_LOCALE}} WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d;odbc32=n"
    export TZ=CST-8 LC_ALL=C.UTF-8 # the C library of Windows knows no names of places: Asia/Shanghai is UTC to it
    # The environment of Wine only: the shell may not know the locale.
    wine_environment=(env LOCPATH="$cache/locales" LC_ALL="$locale")
    if [ "$locale" != C.UTF-8 ] && [ ! -e "$cache/locales/$locale" ]; then
        mkdir -p "$cache/locales"
        localedef -i "$WINE_LOCALE" -f UTF-8 "$cache/locales/$locale"
    fi
    WINEPATH=$(winepath_of "$cache/root/bin")
    export WINEPATH
    if [ -z "${DISPLAY:-}" ]; then
        wine_display
    fi
    if [ ! -e "$WINEPREFIX/system.reg" ]; then
        wine wineboot --init >/dev/null 2>&1
        wine winecfg -v win10 >/dev/null 2>&1
        use_chinese_font >/dev/null 2>&1
    fi
    x86_64-w64-mingw32-gcc-posix -O2 -Wall -shared -o "$WINEPREFIX/drive_c/windows/system32/odbc32.dll" \
        packaging/windows/trial/odbc32.{c,def} -ladvapi32
}

wine() { "${wine_environment[@]}" wine "$@"; }

# Wine's own typefaces have no Chinese characters; these stand in the installer and in the dialogs of the system.
use_chinese_font() {
    local face
    for face in Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2' SimSun 'Microsoft YaHei'; do
        wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$face" /d 'Noto Sans CJK SC' /f
    done
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
