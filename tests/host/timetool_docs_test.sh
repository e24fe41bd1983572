#!/usr/bin/env bash
# timetool's manual page and bash completion against the tool itself: every
# command and option that `timetool --help` lists must be in both, so an
# option added later cannot be forgotten in either.
#   timetool_docs_test.sh man <timetool> <timetool.1.scd>
#   timetool_docs_test.sh completion <timetool> <completion file>
set -euo pipefail
mode=$1 timetool=$2 file=$3
failures=0 checks=0
check() {  # <description> <command...>
  checks=$((checks + 1))
  if ! "${@:2}"; then
    echo "FAILED: $1"
    failures=$((failures + 1))
  fi
}

# The command names, from the Subcommands section of --help.
commands() {
  "$timetool" --help | sed -n '/^Subcommands:/,/^$/p' | sed -n 's/^  \([a-z]\+\) .*/\1/p'
}
# The options of the tool (no argument) or of one command, from their help.
options() {
  "$timetool" ${1:+"$1"} --help | sed -n '/^Options:/,/^$/p' | grep -oE '^ +(-[a-zA-Z],)?--[a-z-]+' | tr ',' '\n' |
    tr -d ' ' | sort
}
# The lines of the manual page's source from the heading of a command to the
# next command's heading or the next section.
command_block() {
  awk -v name="$1" '
    /^# / || /^\*[a-z]+\* / { inside = ($0 ~ "^\\*" name "\\* ") }
    inside' "$file"
}
section() {
  awk -v name="$1" '/^# / { inside = ($0 == "# " name) } inside' "$file"
}
in_text() { grep -qF -- "*$1*" <<<"$2"; }

# What the completion offers after the given words (the last one being the
# word under the cursor).
complete_words() {
  (
    COMP_WORDS=(timetool "$@")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMP_LINE="${COMP_WORDS[*]}"
    COMP_POINT=${#COMP_LINE}
    COMPREPLY=()
    _timetool timetool "${COMP_WORDS[-1]}" "${COMP_WORDS[-2]}"
    printf '%s\n' "${COMPREPLY[@]}" | sort
  )
}
same() {  # <expected lines> <found lines>
  [ "$1" = "$2" ] || {
    echo "expected: $(tr '\n' ' ' <<<"$1")"
    echo "found:    $(tr '\n' ' ' <<<"$2")"
    return 1
  }
}

mapfile -t all_commands < <(commands)
# Guards the reading of --help itself: an empty list would pass every check below.
check "--help lists its commands, convert among them" grep -qx convert <<<"$(printf '%s\n' "${all_commands[@]}")"

case $mode in
  man)
    global=$(section "GLOBAL OPTIONS")
    for option in $(options); do
      check "man page: global option $option" in_text "$option" "$global"
    done
    for command in "${all_commands[@]}"; do
      block=$(command_block "$command")
      check "man page: command $command has its own heading" test -n "$block"
      for option in $(options "$command"); do
        case $option in -h | --help) continue ;; esac
        check "man page: $command $option" in_text "$option" "$block"
      done
    done
    for name in CALENDAR_MODULE_DIR TIMETOOL_NOW CALENDAR_REGISTRY XDG_CONFIG_HOME HOME; do
      check "man page: variable $name" in_text "$name" "$(section ENVIRONMENT)"
    done
    check "man page: the WHEN grammar comes from --help" grep -qx '@WHEN_GRAMMAR@' "$file"
    ;;
  completion)
    # shellcheck source=/dev/null
    source /usr/share/bash-completion/bash_completion
    # shellcheck source=/dev/null
    source "$file"
    check "completes a command" same convert "$(complete_words con)"
    check "offers every command" same "$(printf '%s\n' "${all_commands[@]}" | sort)" "$(complete_words "")"
    check "offers the tool's options" same "$(options)" "$(complete_words -)"
    for command in "${all_commands[@]}"; do
      check "offers the options of $command" same "$(options "$command")" "$(complete_words "$command" -)"
    done
    check "completes a KIND name after --to" same "$(printf '%s\n' hebrew hebrew-mean hebrew0 hebrew1 | sort)" \
      "$(complete_words convert 2024-06-21 --to heb)"
    check "offers all after --to" same all "$(complete_words convert 2024-06-21 --to al)"
    check "completes a KIND name after --from" same julian "$(complete_words show --from ju)"
    check "completes a KIND name after --calendar=" same western "$(complete_words month 2024-02 --calendar=w)"
    kinds=$(complete_words show --calendar "")
    check "offers nine KIND names" same 9 "$(wc -l <<<"$kinds")"
    for kind in $kinds; do
      check "timetool takes the KIND name $kind" "$timetool" convert 2024-06-21 --to "$kind" >/dev/null
    done
    work=$(mktemp -d)
    trap 'rm -rf "$work"' EXIT
    touch "$work/day.xml"
    check "completes the FILE of load" same "$work/day.xml" "$(complete_words load "$work/da")"
    check "completes the FILE of save" same "$work/day.xml" "$(complete_words save "$work/da")"
    check "offers no file for the WHEN of save" same "" "$(complete_words save "$work/day.xml" "$work/da")"
    ;;
  *)
    echo "unknown mode $mode"
    exit 2
    ;;
esac
echo "$((checks - failures)) passed, $failures failed"
[ "$failures" -eq 0 ]
