# bash completion for timetool: the commands, the options of each command,
# calendar names after --calendar, --from and --to, file names for save and
# load. Installed as share/bash-completion/completions/timetool, which
# bash-completion loads the first time timetool is completed.

_timetool() {
    local cur prev words cword split
    _init_completion -s || return

    local commands="show convert sun moon month year between save load window"
    local kinds="gregorian julian western hebrew hebrew0 hebrew1 hebrew-mean adam generic"
    # Options that take a value, so that the value is not read as an argument.
    local valued="--now --tz --from --calendar --to --lat --lon --days --stat"

    case $prev in
        --calendar | --from)
            mapfile -t COMPREPLY < <(compgen -W "$kinds" -- "$cur")
            return
            ;;
        --to)
            mapfile -t COMPREPLY < <(compgen -W "$kinds all" -- "$cur")
            return
            ;;
        --stat)
            # A comma-separated list: complete the last name, keep the others.
            local done_names="" last=${cur##*,}
            [[ $cur == *,* ]] && done_names=${cur%,*}
            mapfile -t COMPREPLY < <(compgen -W "count sum mean min max stddev" -- "$last")
            [[ -n $done_names ]] && COMPREPLY=("${COMPREPLY[@]/#/$done_names,}")
            compopt -o nospace
            return
            ;;
        --tz)
            # Zone names of the system's tz database, one folder level at a time.
            local zones=/usr/share/zoneinfo
            if [[ -d $zones ]]; then
                mapfile -t COMPREPLY < <(cd "$zones" && compgen -f -- "$cur" | grep -v '\.tab$')
                compopt -o filenames
            fi
            return
            ;;
        --now | --lat | --lon | --days)
            return
            ;;
    esac
    $split && return

    local command="" arguments=0 i
    for ((i = 1; i < cword; i++)); do
        if [[ -z $command && " $commands " == *" ${words[i]} "* ]]; then
            command=${words[i]}
        elif [[ -n $command && ${words[i]} != -* && " $valued " != *" ${words[i - 1]} "* ]]; then
            arguments=$((arguments + 1))
        fi
    done

    local options
    case $command in
        "") options="-h --help --version --json --now --tz --ascii" ;;
        show) options="-h --help --from --calendar --lat --lon --json" ;;
        convert) options="-h --help --from --to --json" ;;
        sun) options="-h --help --from --lat --lon --days --json --ics" ;;
        moon) options="-h --help --from --days --json --ics" ;;
        month) options="-h --help --calendar --from --three --monday --lat --lon --json --ics" ;;
        year) options="-h --help --calendar --from --monday --json" ;;
        between) options="-h --help --from --calendar --json" ;;
        save) options="-h --help --from --json" ;;
        load) options="-h --help --json" ;;
        window) options="-h --help --events --stat --json" ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
        [[ ${COMPREPLY[*]} == *= ]] && compopt -o nospace
        return
    fi
    case $command in
        "") mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$cur") ;;
        save | load) ((arguments == 0)) && _filedir ;;
    esac
} &&
    complete -F _timetool timetool
