# bash completion for corvane-tool                                         -*- shell-script -*-

_corvane_tool()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command='' options word name

    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
            check | show | diff | copy | draw) command=$word && break ;;
        esac
    done
    case $command in
        check) options='--strict --game --help' ;;
        show) options='--json --game --help' ;;
        diff) options='--game --help' ;;
        copy) options='--dry-run --force --unchecked --game --help' ;;
        draw) options='--against --watch --game --help' ;;
        *) options='--game --help --version' ;;
    esac

    COMPREPLY=()
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    [[ $command ]] || mapfile -t COMPREPLY < <(compgen -W 'check show diff copy draw' -- "$current")

    # Folders, and what the program reads or writes, in any letter case.
    compopt -o filenames 2>/dev/null
    while IFS= read -r word; do
        name=${word##*/}
        case ${name,,} in
            cc4.exe | *.crv | *.btd | *.json) [[ $previous != --game ]] || continue ;;
            *.svg | *.html) [[ $command == draw && $previous != --game ]] || continue ;;
            *) [[ -d $word ]] || continue ;;
        esac
        COMPREPLY+=("$word")
    done < <(compgen -f -- "$current")
}

complete -F _corvane_tool corvane-tool
