# shellcheck shell=bash
# Functions of the scripts for test servers. The variable `file` is the path of a file that describes the servers in
# lines key=value.

# The account and the database of every server.
# shellcheck disable=SC2034
user=tester password=Tarvex-1 database=library

plain() { # runs the command without root's rights
    if [ "$(id -u)" = 0 ]; then
        setpriv --reuid=nobody --regid=nogroup --clear-groups env HOME=/tmp "$@"
    else
        "$@"
    fi
}

find_program() {
    local found
    found=$(PATH="$PATH:/usr/sbin:$(printf '%s:' /usr/lib/postgresql/*/bin)" command -v "$1") ||
        { echo "${0##*/}: $1 is not installed" >&2; return 1; }
    echo "$found"
}

# Prints a port from 20000 to 32767. Linux gives those from 32768 on to outgoing connections, at any time.
free_port() {
    local port
    while port=$((20000 + RANDOM % 12768)); (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do :; done
    echo "$port"
}

value() { sed -n "s/^$1=//p" "${file:?}"; }

until_true() { # repeats the command until it succeeds; gives up after two minutes, or more on a busy machine
    for _ in $(seq 1200); do
        if "$@" >/dev/null 2>&1; then return 0; fi
        sleep 0.1
    done
    echo "${0##*/}: in vain: $*" >&2
    return 1
}

start_mariadb() { # FOLDER ADDRESS PORT CLIENTS OPTION…: returns when it answers; CLIENTS: hosts that may log in
    local folder=$1 address=$2 port=$3 clients=$4
    plain "$(find_program mariadb-install-db)" --no-defaults --datadir="$folder/mariadb" --skip-test-db \
        --auth-root-authentication-method=normal >"$folder/mariadb.log" 2>&1 || { cat "$folder/mariadb.log" >&2; return 1; }
    plain bash -c "cat >'$folder/init.sql'" <<SQL
create database if not exists $database character set utf8mb4;
create user if not exists $user@'$clients' identified by '$password';
grant all on $database.* to $user@'$clients';
SQL
    plain "$(find_program mariadbd)" --no-defaults --datadir="$folder/mariadb" --port="$port" --bind-address="$address" \
        --socket="$folder/mariadb.sock" --pid-file="$folder/mariadb.pid" --init-file="$folder/init.sql" \
        --innodb-flush-log-at-trx-commit=0 "${@:5}" >>"$folder/mariadb.log" 2>&1 </dev/null &
    until_true grep -q 'ready for connections' "$folder/mariadb.log" || { cat "$folder/mariadb.log" >&2; return 1; }
}

all_stopped() { # returns whether every thread of these processes is stopped
    local process
    for process in "$@"; do
        if cat "/proc/$process"/task/*/stat | grep -qvE '\) T '; then return 1; fi
    done
}

# signal NAME PID…: sends a signal to these processes and their children (PostgreSQL starts one for each connection).
# After STOP it waits until all are stopped.
signal() {
    local process processes=()
    for process in "${@:2}"; do
        mapfile -t -O "${#processes[@]}" processes < <(echo "$process"; pgrep -P "$process")
    done
    plain kill -"$1" "${processes[@]}"
    [ "$1" != STOP ] || while ! all_stopped "${processes[@]}"; do sleep 0.01; done
}
