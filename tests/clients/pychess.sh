#!/bin/sh
# The engine by PyChess' own classes for engines. usage: pychess.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need pychess xvfb-run

# PyChess belongs to the system's own Python, whichever comes first on the PATH.
play() { # seconds, protocol, interface
    timeout "$1" xvfb-run -a /usr/bin/python3 "$here/pychess_game.py" "$2" "$(engine_directory "$3")" "$3"
}

for protocol in uci "xboard 1" "xboard 2"; do
    try "PyChess, $protocol, shipped" play 900 "$protocol" shipped
done
try "PyChess, xboard 1, classic" play 900 "xboard 1" classic
# It takes the answer to "ucinewgame" for a new start, and says "ucinewgame" again.
if play 60 uci classic >"$scratch/seen" 2>&1; then
    fail "PyChess, uci, classic: plays, though it should go round for ever"
else
    ok "PyChess, uci, classic: no game comes about, as it is known"
fi
exit $failed
