# shellcheck shell=sh
# Sourced by what starts the engine for a person: the files that it is started beside.

# Whole or not at all: another engine may be starting in the same directory.
copy_whole() {
    cp "$1" "$2.$$"
    mv "$2.$$" "$2"
}

# Copies settings, values and book from the first directory into the second, which is made if need
# be. What the user has changed is kept. Of values and book a second copy tells whether they are as
# they were shipped: then they follow the program.
fill_directory() {
    mkdir -p "$2"
    [ -e "$2/Tarquelin.ini" ] || copy_whole "$1/Tarquelin.ini" "$2/Tarquelin.ini"
    # Values that were changed are put aside when they are not those that the program reads now.
    if [ -e "$2/values.txt" ] && ! cmp -s "$2/values.txt" "$2/values.shipped" &&
        [ "$(wc -l <"$2/values.txt")" -ne "$(wc -l <"$1/values.txt")" ]; then
        mv "$2/values.txt" "$2/values.old"
        echo "$2/values.txt had not the numbers that are read now; it is $2/values.old." >&2
    fi
    follow "$1/values.txt" "$2/values.txt" "$2/values.shipped"
    follow "$1/Book.tqn" "$2/Book.tqn" "$2/Book.shipped"
}

# follow SOURCE FILE SHIPPED
follow() {
    if [ ! -e "$2" ] || { cmp -s "$2" "$3" && ! cmp -s "$1" "$2"; }; then
        copy_whole "$1" "$2"
        copy_whole "$1" "$3"
    fi
}
