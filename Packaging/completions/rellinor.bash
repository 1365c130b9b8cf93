# Completions of rellinor for bash.

_rellinor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' words='' i

    # The shell parts --source=lastPass at the equals sign.
    if [ "$word" = = ]; then
        word=''
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done
    case $previous in
    -s | --source)
        words='auto chrome lastPass dashlane onePassword tirel keePass keePassXC firefox'
        ;;
    -l | --layout) words=$(rellinor layouts 2>/dev/null | cut -d ' ' -f 1) ;;
    -f | --format)
        words='text json'
        [ "$command" = import ] && words='summary table json tirel credential-exchange'
        ;;
    -o | --output) ;;
    *)
        case $command,$word in
        ,-*) words='--help --version' ;;
        ,*) words='import check detect sources layouts' ;;
        import,-*)
            words='--source --layout --format --reveal --output --force --encrypted --strict'
            words+=' --keep-importer --help'
            ;;
        check,-*) words='--source --layout --format --help' ;;
        detect,-*) words='--format --help' ;;
        sources,-* | layouts,-*) words='--help' ;;
        sources,* | layouts,*) return ;;
        esac
        ;;
    esac
    if [ -n "$words" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _rellinor rellinor
