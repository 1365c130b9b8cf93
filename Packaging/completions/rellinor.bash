# Completions of rellinor for bash.

_rellinor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' words='' i

    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done
    case $previous/$command/$word in
    --source/*)
        words='auto chrome lastPass dashlane onePassword tirel keePass keePassXC firefox'
        ;;
    --layout/*) words=$(rellinor layouts 2>/dev/null | cut -d ' ' -f 1) ;;
    --format/*) words='summary table json tirel' ;;
    --output/*) ;;
    *//-*) words='--help --version' ;;
    *//*) words='import check detect sources layouts' ;;
    */import/-*)
        words='--source --layout --format --reveal --output --force --keep-importer --help'
        ;;
    */check/-*) words='--source --layout --help' ;;
    */-*) words='--help' ;;
    */sources/* | */layouts/*) return ;;
    esac
    if [ -n "$words" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _rellinor rellinor
