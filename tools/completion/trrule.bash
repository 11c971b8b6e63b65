# Completion of trrule's commands, options, codes and files, for bash.

# The codes for the end of a list with commas, each after the rest of the list. The command knows
# them itself.
_trrule_codes() {
  local Program=$1 Word=${2^^}
  local List='' Code
  if [[ $Word == *,* ]]; then
    List=${Word%,*},
  fi
  for Code in $("$Program" check --help 2>/dev/null | sed -n 's/^  \(TR[0-9]*\) .*/\1/p'); do
    if [[ $Code == "${Word##*,}"* ]]; then
      COMPREPLY+=("$List$Code")
    fi
  done
}

_trrule() {
  local Word=${COMP_WORDS[COMP_CWORD]}
  local Before=${COMP_WORDS[COMP_CWORD - 1]}
  local Common='-o --output --force -q --quiet -h --help'
  local Commands='check print sort unique head sample split stats json from-json translate why test draw html find diff patch merge explain help version'
  local Words=''
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    Words="$Commands -h --help --version"
    mapfile -t COMPREPLY < <(compgen -W "$Words" -- "$Word")
    return
  fi
  # An equals sign is a word of its own.
  if [ "$Word" = '=' ]; then
    Word=''
  elif [ "$Before" = '=' ]; then
    Before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $Before in
    --format)
      case ${COMP_WORDS[1]} in
        translate) Words='plain json tree svg html' ;;
        why) Words='plain json html' ;;
        test) Words='plain json junit tap' ;;
        draw) Words='svg html text' ;;
        diff) Words='plain json' ;;
        stats) Words='text json html' ;;
        find) Words='rules json count svg' ;;
        *) Words='text json sarif' ;;
      esac
      ;;
    --severity) Words='error warning note' ;;
    --count-by)
      Words='type sequence source target label literal feature shape size count file'
      ;;
    --by)
      case ${COMP_WORDS[1]} in
        sample | split) Words='type sequence source target shape size count' ;;
        *) Words='index type count length' ;;
      esac
      ;;
    --color) Words='auto always never' ;;
    --memory) Words='64M 256M 1G 50%' ;;
    --only | --except)
      _trrule_codes "${COMP_WORDS[0]}" "$Word"
      return
      ;;
    --examples | --top | --text | --seed | --parts | -n | -k | --start | --threads | --rule | --width) return ;;
    --max-chain | --max-constituents | --max-derivations) return ;;
  esac
  case ${COMP_WORDS[1]} in
    help) Words=$Commands ;;
    explain)
      if [[ $Word != -* ]]; then
        _trrule_codes "${COMP_WORDS[0]}" "$Word"
        return
      fi
      ;;
    version) return ;;
  esac
  if [ -z "$Words" ] && [[ $Word == -* ]]; then
    case ${COMP_WORDS[1]} in
      check) Words="$Common --threads --format --severity --only --except --start --statistics" ;;
      print)
        Words="$Common --keep-bad --threads --no-comments --one-line --from-one-line --flip"
        Words="$Words --as-library"
        ;;
      sort) Words="$Common --keep-bad --threads --memory --by --reverse" ;;
      unique) Words="$Common --keep-bad --threads --memory --sorted --repeated --count --examples" ;;
      head) Words="$Common -n" ;;
      sample) Words="$Common -n --seed --by --threads" ;;
      split) Words="$Common --by -n --parts --threads --memory" ;;
      stats) Words="$Common --format --top --threads --memory" ;;
      merge) Words="-o --output -q --quiet -h --help --path --threads --memory" ;;
      json) Words="$Common --keep-bad --threads" ;;
      from-json) Words="$Common --threads" ;;
      explain) Words='-h --help' ;;
      translate)
        Words="$Common --text --lexicon -k --all-derivations --start --partial --reverse"
        Words="$Words --match-case --format --count --origins --max-chain --max-constituents"
        Words="$Words --max-derivations --threads"
        ;;
      why)
        Words="-o --output -q --quiet -h --help --text --lexicon --start --reverse --match-case"
        Words="$Words --format --max-chain --max-constituents --max-derivations"
        ;;
      test)
        Words="-o --output -q --quiet -h --help --reverse --match-case --format --strict"
        Words="$Words --no-coverage --max-chain --max-constituents --max-derivations --threads"
        Words="$Words --examples --start --fail-under --baseline --accept --watch"
        ;;
      draw) Words="$Common --rule --format --ascii --width" ;;
      html) Words="$Common --with-tests --examples --threads" ;;
      find) Words="$Common --threads --format --count-by" ;;
      diff)
        Words="-o --output -q --quiet -h --help --format --stat --moves --color --memory --threads"
        ;;
      patch) Words="-o --output -q --quiet -h --help --reverse --threads" ;;
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
