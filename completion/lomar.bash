# Completion of lomar's commands, options and formats for bash.
# shellcheck shell=bash

_lomar() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]-} program=${COMP_WORDS[0]} words
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        # The commands stand in --help with two blanks before them.
        words=$("$program" --help 2>/dev/null | sed -n 's/^  \([a-z][a-z]*\) .*/\1/p')
        mapfile -t COMPREPLY < <(compgen -W "$words --help --version" -- "$current")
        return
    fi
    case $previous in
        -o | --output)
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        --format)
            words=$("$program" "$command" --help 2>/dev/null |
                sed -n 's/.*--format .*one of: \(.*\)/\1/p' | tr -d ,)
            mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
            return
            ;;
    esac
    if [[ $current == -* ]]; then
        words=$("$program" "$command" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]*' | sort -u)
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return
    fi
    case $command in
        identify | atlas) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    esac
}

complete -o filenames -F _lomar lomar
