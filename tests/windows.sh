#!/bin/sh
# Runs tests that speak to the engine over pipes against the Windows build of it, under wine: what
# is waiting on a pipe, clocks, book and learning, tablebases.
#
# usage: windows.sh TESTS ENGINE SCRATCH_DIRECTORY
#
# Ends with status 77 where the engine has not been built or there is no wine.
set -eu
tests=$1
engine=$2
scratch=$3

skip() {
    echo "Skipped: $1"
    exit 77
}

[ -e "$engine" ] || skip "$engine has not been built (preset windows)."
wine=$(command -v wine64 || command -v /usr/lib/wine/wine64) || skip "there is no wine64."

mkdir -p "$scratch"
export WINEPREFIX="$scratch/wine" WINEDEBUG=-all
# The first start makes the directory of settings, which takes longer than tests wait.
echo quit | "$wine" "$engine" >"$scratch/log" 2>&1
export TARQUELIN_TEST_ENGINE="$wine '$engine'"
"$tests" --gtest_filter='UciGame.*:BookPlay.*:Tablebases.AreFound*'
