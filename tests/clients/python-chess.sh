#!/bin/sh
# Games, a finished position and analysis by python-chess. usage: python-chess.sh BUILD_DIRECTORY
set -eu
. "$(dirname "$0")/common.sh"
need python3
python3 -c 'import chess.engine' 2>/dev/null || {
    echo "skipped python-chess: it is not installed"
    exit 0
}

for interface in shipped classic; do
    for protocol in uci xboard; do
        try "python-chess, $protocol, $interface" timeout 600 \
            python3 "$here/python_chess_game.py" $protocol "$(engine_directory $interface)"
    done
done
exit $failed
