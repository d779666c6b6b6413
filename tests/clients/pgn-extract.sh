#!/bin/sh
# Games that the engine has saved, read by pgn-extract. usage: pgn-extract.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need pgn-extract python3

for interface in classic shipped; do
    directory=$(engine_directory $interface)
    try "Console, a game of the engine against itself, $interface" \
        timeout 900 python3 "$here/console_game.py" "$directory" $interface game.pgn
done
# It writes the games that it understands anew, and what it does not like to standard error.
if pgn-extract -s --fixresulttags "$directory/game.pgn" >"$scratch/read.pgn" 2>"$scratch/trouble" &&
    [ ! -s "$scratch/trouble" ] && grep -q '^\[Result' "$scratch/read.pgn"; then
    ok "pgn-extract, game.pgn: $(grep '^\[Result' "$scratch/read.pgn")"
else
    fail "pgn-extract, game.pgn: $(head -n 3 "$scratch/trouble")"
fi
exit $failed
