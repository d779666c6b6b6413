# shellcheck shell=sh
# Sourced by the scripts of the clients. They are called with the directory of a build, and tell a
# line for each thing that was tried: "ok" and what was seen, "FAILED" and why, or "skipped" and what
# is missing. Their status is 1 when something failed.

PATH=$PATH:/usr/games # where Debian keeps them, and not every user looks
build=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0

# Prints a directory with the engine as it is shipped, or with that only changed to classic.
engine_directory() { # shipped|classic
    made=$scratch/$1
    if [ ! -d "$made" ]; then
        mkdir "$made"
        cp "$build/tarquelin" "$made"
        for file in Tarquelin.ini values.txt Book.tqn; do
            cp "$here/../../data/$file" "$made"
        done
        [ "$1" = shipped ] || sed -i "s/^Interface = .*/Interface = $1/" "$made/Tarquelin.ini"
    fi
    echo "$made"
}

# Without a command that the client needs, nothing of it is tried.
need() { # commands
    for command in "$@"; do
        command -v "$command" >/dev/null || {
            echo "skipped $(basename "$0" .sh): $command is not installed"
            exit 0
        }
    done
}

ok() {
    echo "ok      $*"
}

fail() {
    echo "FAILED  $*"
    failed=1
}

# Runs a command that tells in a line what it saw, or why it failed.
try() { # name, command
    name=$1
    shift
    if "$@" >"$scratch/seen" 2>"$scratch/trouble"; then
        ok "$name: $(tr '\n' ';' <"$scratch/seen")"
    else
        fail "$name: $(tail -n 3 "$scratch/seen" "$scratch/trouble")"
    fi
}

# Fails unless the file has so many games, all played to an end that the rules know.
check_games() { # name, file, how many
    results=$(grep -cE '^\[Result "(1-0|0-1|1/2-1/2)"\]' "$2" || true)
    faults=$(grep -iE 'forfeit|illegal|claim|abort|exit|timeout|disconnect|stall|adjudicat' "$2" |
        grep -viE 'adjudication: (checkmate|stalemate|insufficient mating material)' || true)
    ends=$(grep -oiE '\{[^{}]*(mate|draw|resign)[^{}]*\}' "$2" | sort | uniq -c | tr -s ' \n' ' ')
    if [ "$results" -eq "$3" ] && [ -z "$faults" ]; then
        ok "$1: $3 games:$ends"
    else
        fail "$1: $results of $3 games: $faults"
    fi
}
