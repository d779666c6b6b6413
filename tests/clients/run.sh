#!/bin/sh
# Tries the engine of a build in every client that is installed. Takes some minutes, and plays under
# the clock: nothing else should run. usage: run.sh BUILD_DIRECTORY [CLIENT...]
set -eu
directory=$(cd "$1" && pwd)
shift
cd "$(dirname "$0")"
[ $# -gt 0 ] || set -- xboard pychess scid pgn-extract cutechess fastchess python-chess
status=0
for client in "$@"; do
    "./$client.sh" "$directory" || status=1
done
exit $status
