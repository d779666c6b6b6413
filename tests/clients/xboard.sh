#!/bin/sh
# Matches of the engine against itself in XBoard, by every protocol that XBoard speaks.
# usage: xboard.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need xboard xvfb-run

GAMES=2
LONGEST=600 # seconds for a match

games_played() {
    grep -c '^\[Result' "$games" 2>/dev/null || true
}

# XBoard does not end after the match, so its games are counted in the file.
play() { # name, interface, options of XBoard
    name="XBoard, $1, $2"
    directory=$(engine_directory "$2")
    games=$scratch/games.pgn
    log=$scratch/log
    rm -f "$games" "$log"
    shift 2
    timeout $LONGEST xvfb-run -a xboard -fcp ./tarquelin -fd "$directory" -scp ./tarquelin \
        -sd "$directory" -mg $GAMES -tc 0:04 -inc 0.1 -testClaims true -popupExitMessage false \
        -popupMoveErrors false -sgf "$games" -debug -nameOfDebugFile "$log" "$@" \
        >"$scratch/output" 2>&1 &
    client=$!
    while kill -0 $client 2>/dev/null && [ "$(games_played)" != $GAMES ]; do
        sleep 1
    done
    sleep 1
    kill $client 2>/dev/null || true
    wait $client 2>/dev/null || true
    if [ -s "$games" ]; then
        check_games "$name" "$games" $GAMES
    else
        fail "$name: no game: $(grep -hiE 'unrecognized|fatal|error|not found' "$scratch/output" \
            "$log" | head -n 3)"
    fi
}

for interface in shipped classic; do
    play "protocol 1" $interface -firstProtocolVersion 1 -secondProtocolVersion 1
    play "protocol 2" $interface
    if command -v polyglot >/dev/null; then
        play UCI $interface -fUCI -sUCI
    else
        echo "skipped XBoard, UCI, $interface: polyglot is not installed"
    fi
done
# The line that begins every game may choose a level.
level='new\nstrength 1400\n'
play "protocol 2 at a level" shipped -firstInitString "$level" -secondInitString "$level"
# The first iteration is always searched to its end, which takes many nodes now and then.
sed -nE 's/^[0-9]+ <(first|second) *: *[0-9]+ -?[0-9]+ [0-9]+ ([0-9]+) .*/\2/p' "$log" | sort -n >"$scratch/nodes"
half=$(($(wc -l <"$scratch/nodes") / 2))
nodes=$(sed -n "${half}p" "$scratch/nodes")
[ "${nodes:-100000}" -lt 10000 ] && ok "half of the moves took $nodes nodes at most" ||
    fail "half of the moves took ${nodes:-no} nodes and more"
exit $failed
