# Completion of pellumar(1) for bash.

_pellumar() {
    local current=${COMP_WORDS[COMP_CWORD]} command='' position=0 word i
    COMPREPLY=()
    # Which command stands on the line, and how many arguments it has before the cursor.
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ $word == --documents || $word == --password-file ]]; then
            ((++i))
        elif [[ $word != -* ]]; then
            if [[ -z $command ]]; then
                command=$word
            else
                ((++position))
            fi
        fi
    done
    if [[ ${COMP_WORDS[COMP_CWORD - 1]} == --documents ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
    elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --password-file ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    elif [[ $current == -* && $command == unzip ]]; then
        mapfile -t COMPREPLY < <(compgen \
            -W '--documents --help --null --password-file --quiet --version' -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(
            compgen -W '--documents --help --null --quiet --version' -- "$current")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W 'zip unzip' -- "$current")
    elif [[ $command == zip && $position -gt 0 ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    elif [[ $command == unzip && $position -eq 0 ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X '!*.[zZ][iI][pP]' -- "$current")
    fi
}

complete -F _pellumar pellumar
