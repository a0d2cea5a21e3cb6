# Completion of tarnwick for fish.

# The selected repositories, without asking GitHub.
function __tarnwick_selected
    set -l config $XDG_CONFIG_HOME
    test -n "$config"; or set config $HOME/.config
    sed -n 's/^filters\.repositories=//p' $config/dev.tarnwick.Tarnwick/settings.ini 2>/dev/null | tail -n 1 |
        tr -d '" ' | tr ',' '\n' | string match -r '^[A-Za-z0-9._-]+/[A-Za-z0-9._-]+$'
end

function __tarnwick_is_bare
    test (count (commandline -opc)) -eq 1
end

# Whether the words before the cursor begin with these.
function __tarnwick_begins
    set -l words (commandline -opc)
    for index in (seq (count $argv))
        test "$words[$(math $index + 1)]" = "$argv[$index]"; or return 1
    end
end

function __tarnwick_repositories_is_bare
    __tarnwick_begins repositories; and test (count (commandline -opc)) -eq 2
end

complete -c tarnwick -f
complete -c tarnwick -n __tarnwick_is_bare -a list -d 'Print the pull requests'
complete -c tarnwick -n __tarnwick_is_bare -a watch -d 'Print the state at every change'
complete -c tarnwick -n __tarnwick_is_bare -a repositories -d 'List or select repositories'
complete -c tarnwick -n __tarnwick_is_bare -l background -d 'Start without opening the panel'
complete -c tarnwick -n __tarnwick_is_bare -l toggle -d 'Show or hide the panel'
complete -c tarnwick -n __tarnwick_is_bare -l version -d 'Print the version'
complete -c tarnwick -s h -l help -d 'Print a summary of the command line'
complete -c tarnwick -n '__tarnwick_begins list' -l cached -d 'Print the last known list'
complete -c tarnwick -n '__tarnwick_begins watch' -l format -x -a 'json waybar i3 line' -d 'Format of the lines'
complete -c tarnwick -n '__tarnwick_begins list' -l json -d 'Print one JSON object'
complete -c tarnwick -n '__tarnwick_begins list' -l by-turn -d 'Arrange by whose turn it is'
complete -c tarnwick -n '__tarnwick_begins list' -l reviewers -x -a 'myself any involved' -d 'Override the setting for this run'
complete -c tarnwick -n __tarnwick_repositories_is_bare -a select -d 'Select repositories'
complete -c tarnwick -n __tarnwick_repositories_is_bare -a unselect -d 'Deselect repositories'
complete -c tarnwick -n __tarnwick_repositories_is_bare -l json -d 'Print one JSON object'
complete -c tarnwick -n '__tarnwick_begins repositories select' -l all -d 'All repositories'
complete -c tarnwick -n '__tarnwick_begins repositories unselect' -l all -d 'All repositories'
complete -c tarnwick -n '__tarnwick_begins repositories unselect' -a '(__tarnwick_selected)' -d 'Selected'
