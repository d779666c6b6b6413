#!/bin/sh
# Makes the program for test farms, quickly rather than well, and runs it as a farm does: beside a
# book, without a values file.
#
# usage: standalone.sh SOURCE_DIRECTORY SCRATCH_DIRECTORY
set -eu
source=$1
scratch=$2
program=$scratch/engine

fail() {
    echo "$1" >&2
    exit 1
}

# The make that may have started this one is no concern of it.
unset MAKEFLAGS MAKELEVEL
rm -rf "$scratch"
mkdir -p "$scratch/play"
make -s -j2 -C "$source" EXE="$program" BUILD="$scratch/build" CXXFLAGS='-O1 -fno-lto'

# The last line, alone, is what a farm reads.
nodes=$(grep -v '^#' "$source/tests/signature.txt")
last=$("$program" bench 8 </dev/null | tail -n 1)
echo "$last" | grep -Eqx "$nodes nodes [1-9][0-9]* nps" ||
    fail "The bench ends with \"$last\", not with $nodes nodes."

for words in depth 'bench 0' 'bench 8x' 'bench 8 8'; do
    status=0
    # shellcheck disable=SC2086 # these are the words
    "$program" $words </dev/null >"$scratch/out" 2>"$scratch/errors" || status=$?
    if [ "$status" != 2 ] || [ -s "$scratch/out" ] || ! grep -q '^usage: ' "$scratch/errors"; then
        fail "\"$words\" ended with status $status."
    fi
done

cp "$source/data/Book.tqn" "$scratch/play"
cd "$scratch/play"
printf 'writevalues\nuci\nposition startpos\ngo depth 3\nquit\n' | "$program" >"$scratch/out"
cmp values.txt "$source/data/values.txt"
grep -q '^info depth 3 ' "$scratch/out" || fail "It did not search at the start of the game."
grep -q '^bestmove ' "$scratch/out" || fail "It found no move."
if grep -E 'Error|openings book$' "$scratch/out"; then
    fail "It missed its values or opened a book that nobody named."
fi
