# Completion of pellumar(1) for bash.

# Files that end in .zip, and folders on the way to them.
_pellumar_archives() {
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -d -- "$1"; compgen -f -X '!*.[zZ][iI][pP]' -- "$1")
}

# The names in the archive $2 that begin with $1.
_pellumar_entries() {
    local name
    COMPREPLY=()
    while IFS= read -r -d '' name; do
        [[ $name == "$1"* ]] && COMPREPLY+=("$name")
    done < <("${COMP_WORDS[0]}" --quiet list -0 -- "$2" 2>/dev/null </dev/null)
    compopt -o filenames
}

_pellumar() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command='' archive='' position=0 options='--help --null --quiet' word i
    COMPREPLY=()
    # Which command stands on the line, and how many arguments it has before the cursor.
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        case $word in
            --documents | --password-file | --encryption | --exclude | --level | --from-list | --to | --strip)
                ((++i)) ;;
            -?*) ;;
            *)
                if [[ -z $command ]]; then
                    command=$word
                else
                    ((++position))
                    ((position == 1)) && archive=$word
                fi ;;
        esac
    done
    case $previous in
        --documents | --to)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            return ;;
        --password-file | --from-list)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return ;;
        --level)
            mapfile -t COMPREPLY < <(compgen -W '1 2 3 4 5 6 7 8 9 store' -- "$current")
            return ;;
        --encryption)
            mapfile -t COMPREPLY < <(compgen -W 'aes256 aes192 aes128 traditional' -- "$current")
            return ;;
        --exclude | --strip) return ;;
    esac
    if [[ $current == -* ]]; then
        case $command in
            '') options+=' --documents --version' ;;
            create) options+=' --encryption --exclude --force --from-list --level --password-file --reproducible' ;;
            extract) options+=' --overwrite --password-file --rename --skip --strip --sync --to' ;;
            list) options+=' --json --names' ;;
            salvage) options+=' --password-file --to' ;;
            cat | test) options+=' --password-file' ;;
            zip) options+=' --documents' ;;
            unzip) options+=' --documents --password-file' ;;
        esac
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    case $command in
        '') mapfile -t COMPREPLY < <(
            compgen -W 'create extract list cat test salvage zip unzip' -- "$current") ;;
        create | zip)
            if [[ $command == create || $position -gt 0 ]]; then
                compopt -o filenames
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
            fi ;;
        test) _pellumar_archives "$current" ;;
        extract | list | cat)
            if ((position == 0)); then
                _pellumar_archives "$current"
            elif [[ $archive == *.[zZ][iI][pP] ]]; then
                _pellumar_entries "$current" "$archive"
            fi ;;
        salvage | unzip) ((position == 0)) && _pellumar_archives "$current" ;;
    esac
}

complete -F _pellumar pellumar
