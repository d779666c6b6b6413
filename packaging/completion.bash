# Completion of tarquelin and the programs beside it in bash.

_tarquelin() {
    local word=${COMP_WORDS[COMP_CWORD]}
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W '--directory --help --version bench perft' -- "$word")
    elif [ "${COMP_WORDS[1]}" = --directory ] && [ "$COMP_CWORD" -eq 2 ]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
    fi
}

# The commands and options that the program, or its command that was typed, says it takes. Other
# words are names of files.
_tarquelin_companion() {
    local word=${COMP_WORDS[COMP_CWORD]} commands
    commands=$("$1" --help 2>/dev/null | sed -n '1,/^Subcommands:/d; s/^  \([a-z]\{1,\}\) .*/\1/p')
    if [[ $word == -* ]]; then
        local command=()
        grep -Fqx -- "${COMP_WORDS[1]}" <<<"$commands" && command=("${COMP_WORDS[1]}")
        mapfile -t COMPREPLY < <(compgen -W "$("$1" "${command[@]}" --help 2>/dev/null |
            grep -Eo '^  (-h,)?--[a-z-]+' | grep -Eo -- '--.*')" -- "$word")
    elif [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$word")
    fi
}

complete -F _tarquelin tarquelin
complete -o default -F _tarquelin_companion tarquelin-annotate tarquelin-bench tarquelin-book \
    tarquelin-fit tarquelin-selfplay tarquelin-tb
