# shellcheck shell=bash disable=SC2154 # variables of scripts/try-windows
# Keys, pictures and checks for scripts/try-windows.

picture() { import -window root "$pictures/$1.png"; }

# Waits until a window whose title begins with the given text is visible, and activates it: after a dialog of Wine no
# window is active.
front() {
    local end=$((SECONDS + 90)) window=
    until [ -n "$window" ]; do
        if ((SECONDS > end)); then
            picture missing
            echo "no window \"$1\" came up" >&2
            exit 1
        fi
        sleep 0.25
        window=$(xdotool search --onlyvisible --name "^$1" 2>/dev/null | tail -n 1 || true)
    done
    xdotool windowactivate --sync "$window"
    sleep 0.7
}

# Presses keys in a window one after the other.
press() {
    local title=$1 key
    shift
    front "$title"
    for key in "$@"; do
        xdotool key "$key"
        sleep 0.3
    done
}

# Clicks into the active window, at pixels from its upper left corner.
click_at() {
    local place
    place=$(xwininfo -id "$(xdotool getactivewindow)" | sed -n 's/^ *Absolute upper-left [XY]: *//p' | tr '\n' ' ')
    xdotool mousemove --sync $((${place% * } + $1)) $((${place#* } + $2)) click 1
    sleep 2
}

# Types a text at the focus.
typed() {
    xdotool type --delay 40 "$1"
    sleep 0.3
}

# Enters a file name in a dialog of the system.
choose() {
    front "$1"
    typed "$2"
    xdotool key Return
    sleep 1
}

# Counts a fault unless the command succeeds within 30 seconds.
expect() {
    local what=$1 end=$((SECONDS + 30))
    shift
    until "$@"; do
        if ((SECONDS > end)); then
            echo "FAULT: $what" >&2
            faults=$((faults + 1))
            return 0
        fi
        sleep 0.5
    done
    echo "ok: $what"
}

absent() { [ ! -e "$1" ]; }
records() { tr -cd '\035' <"$1" 2>/dev/null | wc -c; }
has_records() { [ "$(records "$1")" = "$2" ]; }
sql() { sqlite3 "$data/library.db" "$1" 2>/dev/null; }
counts() { [ "$(sql "select count(*) from $1")" = "$2" ]; }

start() {
    (cd "$samples" && wine "$local_data/Programs/Tarvex/tarvex.exe") &
}

leave() {
    press Tarvex图书馆管理系统 F10 Left Return
    press 'Tarvex图书馆管理系统-\[退出' y
    wineserver -w
}
