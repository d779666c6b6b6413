#!/bin/sh
# Installs the programs, moves the whole, plays through the launcher, and packs twice.
#
# usage: install.sh BUILD_DIRECTORY SCRATCH_DIRECTORY
set -eu
build=$1
scratch=$2

fail() {
    echo "$1" >&2
    exit 1
}

rm -rf "$scratch"
mkdir -p "$scratch"
cmake --install "$build" --prefix "$scratch/made" >"$scratch/log"
mv "$scratch/made" "$scratch/moved"
launcher=$scratch/moved/bin/tarquelin
source=$(cd "$(dirname "$0")/.." && pwd)
if grep -rlF "$source" "$scratch/moved"; then
    fail "These tell where they were built."
fi
export HOME="$scratch/home"
unset XDG_DATA_HOME

# Every option that a program or one of its commands takes stands in its page.
for program in annotate bench book fit selfplay tb; do
    page=$scratch/moved/share/man/man1/tarquelin-$program.1
    program=$scratch/moved/bin/tarquelin-$program
    "$program" --help >"$scratch/help"
    for command in $(sed -n '1,/^Subcommands:/d; s/^  \([a-z]*\) .*/\1/p' "$scratch/help"); do
        "$program" "$command" --help >>"$scratch/help"
        grep -q "^\.SS $command\$" "$page" || fail "$page tells nothing of $command."
    done
    for option in $(sed -n 's/^  \(-h,\)\{0,1\}\(--[a-z-]*\).*/\2/p' "$scratch/help" | sort -u); do
        sed 's/\\-/-/g' "$page" | grep -Eq -- "$option([^a-z-]|\$)" || fail "$page lacks $option."
    done
done

# A first start fills the directory; what was changed in it is kept; what was not follows.
home=$HOME/.local/share/tarquelin
echo quit | "$launcher" | grep -q ' nodes in openings book$' || fail "It began without its book."
cmp "$home/values.txt" "$scratch/moved/share/tarquelin/values.txt"
echo '; mine' >>"$home/Tarquelin.ini"
echo mine >>"$home/Book.tqn"
cp "$home/Book.tqn" "$scratch/learned"
echo 1 >>"$scratch/moved/share/tarquelin/values.txt"
printf 'uci\nposition startpos moves a2a3 a7a6\ngo depth 3\nquit\n' | "$launcher" >"$scratch/out"
grep -q '^bestmove ' "$scratch/out" || fail "It found no move."
if grep Error "$scratch/out"; then
    fail "It missed a file."
fi
tail -n 1 "$home/Tarquelin.ini" | grep -qx '; mine' || fail "Settings were not kept."
cmp "$home/Book.tqn" "$scratch/learned"
tail -n 1 "$home/values.txt" | grep -qx 1 || fail "Values did not follow the program."

# Other directories, also with odd names; the benches.
cd "$scratch"
echo quit | XDG_DATA_HOME="$scratch/data of mine" "$launcher" >out
echo quit | "$launcher" --directory -odd >out
for directory in 'data of mine/tarquelin' ./-odd; do
    [ -e "$directory/Book.tqn" ] || fail "$directory was not filled."
done
"$launcher" bench 1 | grep -q '^nodes ' || fail "There is no bench."
"$launcher" perft 3 | grep -q '^perft 3: 8902 leaves' || fail "There is no perft."
"$launcher" --version | grep -Eqx 'tarquelin [0-9.]+' || fail "It has no version."
"$launcher" --help | grep -q -- '--directory' || fail "It has no help."
for words in '--directory' 'bench x' 'bench 1 2' 'perft' 'perft -1' '--none' 'none' '--version x'; do
    status=0
    # shellcheck disable=SC2086 # these are the words
    "$launcher" $words </dev/null >out 2>errors || status=$?
    if [ "$status" != 2 ] || [ -s out ] || ! grep -q '^tarquelin: ' errors; then
        fail "\"$words\" ended with status $status."
    fi
done

command -v dpkg-shlibdeps >/dev/null || exit 0
for time in first second; do
    (cd "$build" && cpack -G DEB -B "$scratch/$time") >"$scratch/log" || fail "$(cat "$scratch/log")"
done
cmp first/*.deb second/*.deb
