# shellcheck shell=bash
# Sourced by the scripts here: talking to an engine, and counting faults.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
bin=$root/build/release
faults=0

fault() {
    echo "fault: $*"
    faults=$((faults + 1))
}

# Starts the engine in a directory, after what else the shell is to do before. Its process is
# `engine`, its input is file 3 and its output file 4.
start_engine() { # directory, commands
    rm -f to from
    mkfifo to from
    (cd "$1" && eval "${2-}" && exec "$bin/tarquelin") <to >from &
    engine=$!
    # Both ends open the pipes in the same order: each waits for the other.
    exec 3>to 4<from
    said=
}

# Sends lines and reads up to an answer that begins so. What has been said stays in `said`, the last
# line of it is `answer`. False when the engine has gone.
talk() { # beginning, lines ...
    local wanted=$1
    shift
    printf '%s\n' "$@" >&3 || return 1
    while read -r answer <&4; do
        said+=$answer$'\n'
        case $answer in "$wanted"*) return 0 ;; esac
    done
    return 1
}

# Lets the engine end, which it must with status 0.
end_engine() { # what was tried
    echo quit >&3 || true
    wait "$engine" || fault "$1: ended with status $?"
    exec 3>&- 4<&-
}

tell_faults() {
    echo "$faults faults"
    [ "$faults" = 0 ]
}
