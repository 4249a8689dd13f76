# Completion of scenewright-cli for bash.

# Offers the words of the first argument that begin with what is typed.
_scenewright_cli_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

# A file name, whatever follows the last slash; a folder ends in one.
_scenewright_cli_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

# The settings of any bank up to the next dot, as the program on the line knows them.
_scenewright_cli_paths() {
    local program=${COMP_WORDS[0]} typed=$1 kept
    kept=${typed%"${typed##*.}"}
    mapfile -t COMPREPLY < <(
        "$program" default - 2>/dev/null | "$program" get - 'scene*' 2>/dev/null |
            awk -F = -v typed="$typed" -v from="$((${#kept} + 1))" '
                index($1, typed) == 1 {
                    rest = substr($1, from)
                    dot = index(rest, ".")
                    print substr($1, 1, from - 1) (dot ? substr(rest, 1, dot) : rest)
                }' | sort -u
    )
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *. ]]; then
        compopt -o nospace 2>/dev/null
    fi
}

# Notes the command that stands on the line already, and how many arguments it has before the one
# that is typed. An option that takes a value takes the word after it along, and bash takes the sign
# in --virtual=BANK for a word of its own.
_scenewright_cli_command() {
    local i
    command='' arguments=0
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --console | --log | --resources | --scene | --backup | --to | --from | =) ((i++)) ;;
            -?*) ;;
            *) if [[ -z $command ]]; then command=${COMP_WORDS[i]}; else ((arguments++)); fi ;;
        esac
    done
}

_scenewright_cli_options() {
    case $1 in
        '') echo --virtual --console --log --resources --help --version ;;
        send) echo --verify --backup --dry-run --help ;;
        show) echo --scene --json --help ;;
        diff | devices) echo --json --help ;;
        convert) echo --to --help ;;
        copy) echo --from --help ;;
        *) echo --help ;;
    esac
}

_scenewright_cli_argument() {
    case $command:$arguments in
        :*) _scenewright_cli_words "read send show get set copy diff convert default devices udev-rules" "$1" ;;
        devices:* | udev-rules:*) ;;
        get:0 | set:0 | copy:0) _scenewright_cli_files "$1" ;;
        get:* | set:* | copy:*) _scenewright_cli_paths "$1" ;;
        *) _scenewright_cli_files "$1" ;;
    esac
}

_scenewright_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command arguments
    _scenewright_cli_command

    if [[ $current == = ]]; then
        current='' previous='='
    fi
    case $previous in
        =) [[ $command == set ]] || _scenewright_cli_files "$current" ;;
        --console | --log | --backup | --from) _scenewright_cli_files "$current" ;;
        --resources)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            ;;
        --scene) _scenewright_cli_words "1 2 3 4" "$current" ;;
        --to) _scenewright_cli_words "json image" "$current" ;;
        *)
            if [[ $current == -* ]]; then
                _scenewright_cli_words "$(_scenewright_cli_options "$command")" "$current"
            else
                _scenewright_cli_argument "$current"
            fi
            ;;
    esac
}

complete -F _scenewright_cli scenewright-cli
