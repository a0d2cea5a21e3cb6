# Completion of tarnwick for bash.

# The selected repositories, without asking GitHub.
_tarnwick_selected() {
    local settings=${XDG_CONFIG_HOME:-$HOME/.config}/dev.tarnwick.Tarnwick/settings.ini
    sed -n 's/^filters\.repositories=//p' "$settings" 2>/dev/null | tail -n 1 | tr -d '" ' | tr ',' '\n' |
        grep -xE '[A-Za-z0-9._-]+/[A-Za-z0-9._-]+'
}

_tarnwick() {
    local current=${COMP_WORDS[COMP_CWORD]} words=
    case "${COMP_WORDS[1]}:${COMP_WORDS[2]}" in
        list:*) words='--by-turn --cached --reviewers --json --help' ;;
        watch:--format) words='json waybar i3 line' ;;
        watch:*) words='--format --help' ;;
        repositories:select) words='--all --help' ;;
        repositories:unselect) words="--all --help $(_tarnwick_selected)" ;;
        repositories:*) words='select unselect --json --help' ;;
        *) words='list repositories watch --background --toggle --help --version' ;;
    esac
    case "$COMP_CWORD:${COMP_WORDS[1]}" in
        1:*) words='list repositories watch --background --toggle --help --version' ;;
        2:repositories) words='select unselect --json --help' ;;
        2:list | 2:watch) ;;
        3:watch) ;;
        2:*) words= ;;
    esac
    if [[ ${COMP_WORDS[1]} == list && ${COMP_WORDS[COMP_CWORD - 1]} == --reviewers ]]; then
        words='myself any involved'
    fi
    # shellcheck disable=SC2207  # The words have no blanks.
    COMPREPLY=($(compgen -W "$words" -- "$current"))
}

complete -F _tarnwick tarnwick
