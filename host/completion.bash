# SPDX-License-Identifier: Apache-2.0
# TAB completes the options of epon-host and epon-console in bash, with files where an option takes one. Source this
# file, or install it as /usr/share/bash-completion/completions/epon-host with a link named epon-console.

# "--option KIND" for every option, as the program itself tells them; KIND is missing where it takes no value.
_epon_options() {
    "$1" --help 2>/dev/null | sed -nE '
        s/^ +(-[a-z]),(--[a-z-]+)( ([A-Z]{2,}))?.*/\1 \4\n\2 \4/p
        s/^ +(--[a-z-]+)( ([A-Z]{2,}))?.*/\1 \3/p'
}

# Files whose names end so, and folders that may lead to more of them.
_epon_files() {
    local suffix=$1 word=$2 name
    compopt -o filenames 2>/dev/null
    while IFS= read -r name; do
        if [[ -d $name || $name == *"$suffix" ]]; then COMPREPLY+=("$name"); fi
    done < <(compgen -f -- "$word")
}

_epon_complete() {
    local program=$1 word=$2 before=$3 options kind
    if [[ $before == "=" ]]; then before=${COMP_WORDS[COMP_CWORD - 2]}; fi
    if [[ $word == "=" ]]; then word=""; fi
    options=$(_epon_options "$program")
    kind=$(sed -n "s/^$before //p" <<<"$options")
    COMPREPLY=()
    case $kind in
    SCENARIO) _epon_files .toml "$word" ;;
    FILE | SOCKET) _epon_files "" "$word" ;;
    FOLDER)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        ;;
    ADDRESS) mapfile -t COMPREPLY < <(compgen -W "127.0.0.1 ::1 0.0.0.0 ::" -- "$word") ;;
    "") mapfile -t COMPREPLY < <(compgen -W "$(cut -d " " -f 1 <<<"$options")" -- "$word") ;;
    esac
}

complete -F _epon_complete epon-host epon-console
