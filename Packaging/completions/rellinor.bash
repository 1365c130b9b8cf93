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
    --format/*) words='summary table json tirel' ;;
    --output/*) ;;
    *//-*) words='--help --version' ;;
    *//*) words='import detect check sources' ;;
    */import/-*)
        words='--source --format --reveal --output --force --keep-importer --help'
        ;;
    */check/-*) words='--source --help' ;;
    */-*) words='--help' ;;
    */sources/*) return ;;
    esac
    if [ -n "$words" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _rellinor rellinor
