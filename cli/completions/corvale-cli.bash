# Completion of corvale-cli for bash.

_corvale_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]:-} words
    local one_table='--sheet --header-row'
    local two_tables="$one_table --before-sheet --after-sheet --before-header-row --after-header-row"
    local comparison='--key --row-order --ignore-case --keep-whitespace --ignore-number-format --by-position
        --ignore-column --number-style'
    COMPREPLY=()

    case $previous in
        --format) words='text summary json' ;;
        --show) words='all changes added removed changed' ;;
        --lang) words='en es' ;;
        --number-style) words='automatic dotDecimal commaDecimal' ;;
        # Names and numbers that only the files know.
        --sheet | --before-sheet | --after-sheet | --header-row | --before-header-row | --after-header-row) return ;;
        --key | --ignore-column | --column | --search) return ;;
    esac
    if [[ -z ${words:-} ]]; then
        if ((COMP_CWORD == 1)); then
            words='sheets table key compare report -h --help --version'
        elif [[ $current == -* ]]; then
            case $command in
                sheets) words='-h --help' ;;
                table) words="$one_table -h --help" ;;
                key) words="$two_tables -h --help" ;;
                compare) words="$two_tables $comparison --show --column --search --format -h --help" ;;
                report) words="$two_tables $comparison -o --output --include-unchanged --lang -h --help" ;;
            esac
        else
            compopt -o filenames
            local kinds='xlsx|csv|tsv|txt'
            [[ $previous != -o && $previous != --output ]] || kinds='xlsx|html'
            mapfile -t COMPREPLY < <(shopt -s extglob; compgen -f -X "!*.@($kinds)" -- "$current"
                compgen -d -- "$current")
            return
        fi
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _corvale_cli corvale-cli
