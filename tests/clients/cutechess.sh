#!/bin/sh
# A match of the engine against itself in Cute Chess. usage: cutechess.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need cutechess-cli

for interface in shipped classic; do
    for protocol in uci xboard; do
        rm -f "$scratch/games.pgn"
        directory=$(engine_directory $interface)
        timeout 600 cutechess-cli -engine name=first -engine name=second \
            -each cmd=./tarquelin dir="$directory" proto=$protocol tc=4+0.1 \
            -games 2 -pgnout "$scratch/games.pgn" >"$scratch/output" 2>&1 || true
        touch "$scratch/games.pgn"
        check_games "Cute Chess, $protocol, $interface" "$scratch/games.pgn" 2
    done
done
exit $failed
