# Completion of trrule's commands, options and files, for bash.

_trrule() {
  local Word=${COMP_WORDS[COMP_CWORD]}
  local Before=${COMP_WORDS[COMP_CWORD - 1]}
  local Common='-o --output -q --quiet -h --help'
  local Words=''
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    Words='check print sort unique json from-json -h --help --version'
    mapfile -t COMPREPLY < <(compgen -W "$Words" -- "$Word")
    return
  fi
  case $Before in
    --format) Words='text json sarif' ;;
    --severity) Words='error warning' ;;
    --by) Words='index type count length' ;;
    --memory) Words='64M 256M 1G 50%' ;;
    --only | --except | --examples) return ;;
  esac
  if [ -z "$Words" ] && [[ $Word == -* ]]; then
    case ${COMP_WORDS[1]} in
      check) Words="$Common --format --severity --only --except" ;;
      print) Words="$Common --keep-bad --no-comments --one-line --from-one-line --flip" ;;
      sort) Words="$Common --keep-bad --memory --by --reverse" ;;
      unique) Words="$Common --keep-bad --memory --sorted --repeated --count --examples" ;;
      json) Words="$Common --keep-bad" ;;
      from-json) Words=$Common ;;
    esac
  fi
  if [ -n "$Words" ]; then
    mapfile -t COMPREPLY < <(compgen -W "$Words" -- "$Word")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$Word")
    compopt -o filenames 2>/dev/null
  fi
}

complete -F _trrule trrule
