# Completion of lomar's commands, options and formats for bash.
# shellcheck shell=bash

_lomar() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]-} program=${COMP_WORDS[0]} words=""
    COMPREPLY=()
    # bash cuts --format=json in three.
    [[ $current == "=" ]] && current=""
    [[ $previous == "=" ]] && previous=${COMP_WORDS[COMP_CWORD - 2]}
    if ((COMP_CWORD == 1)); then
        # The commands stand in --help with two blanks before them.
        words=$("$program" --help 2>/dev/null | sed -n 's/^  \([a-z][a-z]*\) .*/\1/p')
        mapfile -t COMPREPLY < <(compgen -W "$words --help --version" -- "$current")
        return
    fi
    case $previous in
        -o | --output | --cif)
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        --from) words="xyz cif shelx sg generators json" ;;
        --what) words="elements positions both" ;;
        --axis) words="a b c" ;;
        --format)
            words=$("$program" "$command" --help 2>/dev/null |
                sed -n 's/.*--format .*one of: \(.*\)/\1/p' | tr -d ,)
            ;;
    esac
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return
    fi
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
