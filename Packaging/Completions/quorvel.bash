# The completions of bash for "quorvel".

_quorvel_options() {
  case $1 in
    locate) echo --json --help ;;
    history) echo --json --since --help ;;
    export) echo --format --output --help ;;
    check-in)
      echo --cafe --wifi-speed --outlets --noise --quiet-for-calls --note --json --help
      ;;
    *) echo -h --help -v --version --panel --history --probe --background ;;
  esac
}

# _quorvel_values COMMAND OPTION: prints the possible values; fails if the option takes none.
_quorvel_values() {
  case $1:$2 in
    export:--format) echo json csv geojson ;;
    check-in:--wifi-speed | check-in:--outlets) echo 1 2 3 4 5 ;;
    check-in:--noise | check-in:--quiet-for-calls) echo 1 2 3 4 5 ;;
    export:--output | history:--since | check-in:--cafe | check-in:--note) ;;
    *) return 1 ;;
  esac
}

# _quorvel_unused WORD...: prints the words that are not yet in the line.
_quorvel_unused() {
  local word
  for word in "$@"; do
    [[ " ${COMP_WORDS[*]:0:COMP_CWORD} " == *" $word "* ]] || echo "$word"
  done
}

_quorvel() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} values
  # Bash splits "--format=csv" into three words.
  [[ $before != '=' ]] || before=${COMP_WORDS[COMP_CWORD - 2]}
  [[ $word != '=' ]] || word=''
  COMPREPLY=()
  if [[ $COMP_CWORD -eq 1 && $word != -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W 'locate history export check-in' -- "$word")
  elif values=$(_quorvel_values "${COMP_WORDS[1]}" "$before"); then
    mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word")
    if [[ $before == --output ]]; then
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
  else
    values=$(_quorvel_options "${COMP_WORDS[1]}")
    # shellcheck disable=SC2086 # The words are our own.
    mapfile -t COMPREPLY < <(compgen -W "$(_quorvel_unused $values)" -- "$word")
  fi
}

complete -F _quorvel quorvel
