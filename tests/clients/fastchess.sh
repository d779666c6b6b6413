#!/bin/sh
# The test of the protocol and a match in fastchess. usage: fastchess.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need fastchess

for interface in shipped classic; do
    directory=$(engine_directory $interface)
    try "fastchess, compliance, $interface" timeout 300 \
        sh -c 'cd "$1" && fastchess --compliance ./tarquelin | tail -n 1' - "$directory"
    rm -f "$scratch/games.pgn"
    timeout 600 fastchess -engine name=first -engine name=second \
        -each cmd=./tarquelin dir="$directory" proto=uci tc=4+0.1 \
        -rounds 1 -games 2 -pgnout file="$scratch/games.pgn" >"$scratch/output" 2>&1 || true
    touch "$scratch/games.pgn"
    check_games "fastchess, uci, $interface" "$scratch/games.pgn" 2
done
exit $failed
