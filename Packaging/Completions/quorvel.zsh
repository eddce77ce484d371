#compdef quorvel
# The completions of zsh for "quorvel".

_quorvel_commands() {
  local -a commands=(
    'locate:find the café that you are in, its weather and its Wi-Fi'
    'history:list your visits'
    'export:write all your visits for other programs'
    'check-in:store a visit at the nearest café'
  )
  _describe command commands
}

_quorvel_options() {
  local -a json=('--json[print one JSON object, for programs]')
  local -a help=('(- *)--help[show the options of the command]')
  case $1 in
    locate) _arguments $json $help ;;
    history)
      _arguments $json $help '--since=[only visits from this day on]:day, as in 2026-03-01: '
      ;;
    export)
      _arguments $help \
        '--format=[the format of the visits]:format:(json csv geojson)' \
        '--output=[write this file instead of printing]:file:_files'
      ;;
    check-in)
      _arguments $json $help \
        '--cafe=[another café nearby]:name or identifier: ' \
        '--wifi-speed=[score the Wi-Fi]:score:(1 2 3 4 5)' \
        '--outlets=[score the power outlets]:score:(1 2 3 4 5)' \
        '--noise=[score the noise, lower is quieter]:score:(1 2 3 4 5)' \
        '--quiet-for-calls=[score whether it is quiet enough for calls]:score:(1 2 3 4 5)' \
        '--note=[a note on the visit]:note: '
      ;;
  esac
}

_quorvel() {
  local curcontext=$curcontext state line
  _arguments -C \
    '(- 1 *)'{-h,--help}'[show a short text on options and commands]' \
    '(- 1 *)'{-v,--version}'[show the version]' \
    '(1 *)--panel[open the panel, to check in]' \
    '(1 *)--history[open the window of your visits]' \
    '(1 *)--probe[open the diagnostics]' \
    '(1 *)--background[open nothing, as at a login]' \
    '1: :_quorvel_commands' \
    '*:: :->options' && return
  [[ $state != options ]] || _quorvel_options $line[1]
}

_quorvel "$@"
