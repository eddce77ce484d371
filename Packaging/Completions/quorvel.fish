# The completions of fish for "quorvel".

set -l commands locate history export check-in
set -l none "not __fish_seen_subcommand_from $commands"
set -l scores '1 2 3 4 5'

complete -c quorvel -f
complete -c quorvel -n $none -a locate -d 'Find the café that you are in'
complete -c quorvel -n $none -a history -d 'List your visits'
complete -c quorvel -n $none -a export -d 'Write all your visits for other programs'
complete -c quorvel -n $none -a check-in -d 'Store a visit at the nearest café'
complete -c quorvel -n $none -s h -l help -d 'Show a short text on options and commands'
complete -c quorvel -n $none -s v -l version -d 'Show the version'
complete -c quorvel -n $none -l panel -d 'Open the panel, to check in'
complete -c quorvel -n $none -l history -d 'Open the window of your visits'
complete -c quorvel -n $none -l probe -d 'Open the diagnostics'
complete -c quorvel -n $none -l background -d 'Open nothing, as at a login'

function __quorvel_option -a command option
    complete -c quorvel -n "__fish_seen_subcommand_from $command" -l $option $argv[3..]
end

for command in $commands
    __quorvel_option $command help -d 'Show the options of the command'
end
for command in locate history check-in
    __quorvel_option $command json -d 'Print one JSON object, for programs'
end

__quorvel_option history since -x -d 'Only visits from this day on, as in 2026-03-01'

__quorvel_option export format -x -a 'json csv geojson' -d 'The format of the visits'
__quorvel_option export output -r -F -d 'Write this file instead of printing'

__quorvel_option check-in cafe -x -d 'Another café nearby, by name or identifier'
__quorvel_option check-in wifi-speed -x -a $scores -d 'Score the Wi-Fi'
__quorvel_option check-in outlets -x -a $scores -d 'Score the power outlets'
__quorvel_option check-in noise -x -a $scores -d 'Score the noise, lower is quieter'
__quorvel_option check-in quiet-for-calls -x -a $scores -d 'Score whether it is quiet enough for calls'
__quorvel_option check-in note -x -d 'A note on the visit'

functions -e __quorvel_option
