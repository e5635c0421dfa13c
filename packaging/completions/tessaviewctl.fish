# Completion of tessaviewctl for fish.
set -l commands list search open open-group save-group activate close reload text html pdf screenshot keep-offline \
    check-group pdf-group keep-group run-command wait-idle bus-name quit
# The tabs are those of the instance that is meant.
function __tessaviewctl_tabs
    set -l words (commandline -opc)
    set -l instance
    if set -l at (contains -i -- --instance $words)
        set instance --instance (string replace -r '^~(?=/|$)' $HOME -- $words[(math $at + 1)])
    end
    tessaviewctl $instance list 2>/dev/null | while read -l -d \t number state title rest
        printf '%s\t%s\n' $number $title
    end
end
# Behind one of these words.
function __tessaviewctl_behind
    set -l words (commandline -opc)
    contains -- $words[-1] $argv
end
complete -c tessaviewctl -f
complete -c tessaviewctl -n "not __fish_seen_subcommand_from $commands" -a "$commands"
complete -c tessaviewctl -l instance -x -a "(__fish_complete_directories)" -d "The home that is meant"
complete -c tessaviewctl -l timeout -x -d "How long to wait, in seconds"
complete -c tessaviewctl -s h -l help -d "Show a short help"
complete -c tessaviewctl -l version -d "Show the version"
complete -c tessaviewctl -n "__fish_seen_subcommand_from list search check-group" -l json -d "As JSON"
complete -c tessaviewctl -n "__fish_seen_subcommand_from open" -l behind -d "Behind the tab in front"
complete -c tessaviewctl -n "__fish_seen_subcommand_from open open-group reload" -l wait -d "Until loaded"
complete -c tessaviewctl -n "__fish_seen_subcommand_from open-group" -l close-others -d "Close the other tabs"
complete -c tessaviewctl -n "__fish_seen_subcommand_from save-group" -l replace -d "Replace the file"
complete -c tessaviewctl -n "__fish_seen_subcommand_from close reload; or __tessaviewctl_behind activate text html pdf screenshot" \
    -a "(__tessaviewctl_tabs)"
complete -c tessaviewctl -n "__tessaviewctl_behind reload pdf" -a all -d "All tabs"
complete -c tessaviewctl \
    -n "__fish_seen_subcommand_from open open-group save-group keep-offline check-group pdf-group keep-group" -F
complete -c tessaviewctl \
    -n "__fish_seen_subcommand_from pdf screenshot; and not __tessaviewctl_behind pdf screenshot" -F
