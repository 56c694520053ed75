# shellcheck shell=bash
# Completion of sorvane-cli for bash: commands, options, groups, names of values, ports and files.
# Commands and options are those that the program's help lists, names those that it knows.

# The first word of each row of a part of the help.
_sorvane_cli_rows() {
  local title=$1 line inside=
  shift
  while IFS= read -r line; do
    case $line in
      "$title:") inside=yes ;;
      "") inside= ;;
      "   "*) ;;
      "  "*)
        line=${line#  }
        line=${line%% *}
        [ -n "$inside" ] && printf '%s\n' "${line//,/$'\n'}"
        ;;
    esac
  done < <("$@" --help 2>/dev/null)
}

# Names of values, or with the first word "groups" their groups. Those that "set" may change have a
# sign behind them where the first word is "set".
_sorvane_cli_names() {
  local what=$1 program=$2 name group rest
  while read -r name group rest; do
    case $what:$rest in
      groups:*) printf '%s\n' "$group" ;;
      "set:"*"read only" | "set:"*"  text") ;;
      "set:"*) printf '%s=\n' "$name" ;;
      *) printf '%s\n' "$name" ;;
    esac
  done < <("$program" names 2>/dev/null) | sort -u
}

_sorvane_cli_ports() {
  local port rest
  "$1" ports 2>/dev/null | while read -r port rest; do printf '%s\n' "$port"; done
}

# Whether the word behind this one is its value.
_sorvane_cli_takes_value() {
  case $1 in
    -p | --port | -i | --index | -o | --output | --trace | --only | --except | --every | \
      --format | --language | --since) ;;
    *) return 1 ;;
  esac
}

_sorvane_cli_offer() {
  mapfile -t COMPREPLY < <(compgen "$@" -- "$word")
}

_sorvane_cli_offer_files() {
  compopt -o filenames 2>/dev/null
  _sorvane_cli_offer "$@"
}

# The list in front of the last comma stays.
_sorvane_cli_offer_groups() {
  local before='' i
  [[ $word == *,* ]] && before=${word%,*},
  word=${word##*,}
  _sorvane_cli_offer -W "$(_sorvane_cli_names groups "$program")"
  for i in "${!COMPREPLY[@]}"; do COMPREPLY[i]=$before${COMPREPLY[i]}; done
}

_sorvane_cli() {
  local program=${COMP_WORDS[0]} word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local -a command=()
  local i commands
  COMPREPLY=()
  # The sign between an option and its value is a word of its own.
  [ "$word" = = ] && word=
  if [ "$before" = = ] || [ "${COMP_WORDS[COMP_CWORD]}" = = ]; then
    i=$((COMP_CWORD - 1))
    [ "$before" = = ] && i=$((COMP_CWORD - 2))
    before=${COMP_WORDS[i]}
    [[ $before == -* ]] || return 0
  fi

  if _sorvane_cli_takes_value "$before"; then
    case $before in
      -p | --port) _sorvane_cli_offer_files -f -W "$(_sorvane_cli_ports "$program")" ;;
      -i | --index) _sorvane_cli_offer_files -d ;;
      -o | --output | --trace | --since) _sorvane_cli_offer_files -f ;;
      --only | --except) _sorvane_cli_offer_groups ;;
      --format) _sorvane_cli_offer -W "text csv json dts html" ;;
      --language) _sorvane_cli_offer -W "en it" ;;
    esac
    return 0
  fi

  commands=$(_sorvane_cli_rows Subcommands "$program")
  for ((i = 1; i < COMP_CWORD; ++i)); do
    _sorvane_cli_takes_value "${COMP_WORDS[i - 1]}" && continue
    if [[ $'\n'$commands$'\n' == *$'\n'"${COMP_WORDS[i]}"$'\n'* ]]; then
      command=("${COMP_WORDS[i]}")
      break
    fi
  done
  if [[ $word == -* ]]; then
    _sorvane_cli_offer -W "$(_sorvane_cli_rows Options "$program"
      [ ${#command[@]} -eq 0 ] || _sorvane_cli_rows Options "$program" "${command[@]}")"
    return 0
  fi

  case ${command[*]} in
    "") _sorvane_cli_offer -W "$commands" ;;
    get | watch) _sorvane_cli_offer -W "$(_sorvane_cli_names all "$program")" ;;
    set)
      compopt -o nospace 2>/dev/null
      _sorvane_cli_offer -W "$(_sorvane_cli_names set "$program")"
      ;;
    names) _sorvane_cli_offer -W "$(_sorvane_cli_names groups "$program")" ;;
    clock) _sorvane_cli_offer -W "$(_sorvane_cli_rows Subcommands "$program" clock)" ;;
    audit | backup | check | diff | restore) _sorvane_cli_offer_files -f ;;
  esac
}

complete -F _sorvane_cli sorvane-cli
