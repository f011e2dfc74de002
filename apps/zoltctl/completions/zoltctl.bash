# bash completion for zoltctl. It needs bash alone and asks no daemon, so it never waits.

# Offers those of the words that begin with what is typed.
_zoltctl_offer() {
    local word
    for word in "$@"; do
        if [[ $word == "$cur"* ]]; then
            COMPREPLY+=("$word")
        fi
    done
}

# The words that may follow a command, given all words up to there without
# options and their values. Offers nothing where any text may stand.
_zoltctl_arguments() {
    local address='0 1 2 3 4 5 6 7 8 9 A B C D E F'
    # Each of the lists is meant to fall into words.
    # shellcheck disable=SC2086
    case "$1" in
        '') _zoltctl_offer cards discover poll input set lcd ir watch monitor config speed \
            version console raw ;;
        poll) _zoltctl_offer on off ;;
        'poll on'* | 'poll off'*) _zoltctl_offer $address ;;
        input | set | lcd | ir) _zoltctl_offer $address ;;
        'input '?) _zoltctl_offer 0 1 2 3 4 5 ;;
        'set '?) _zoltctl_offer $address ;;
        'lcd '?) _zoltctl_offer clear light cursor blink text ;;
        'lcd '?' light' | 'lcd '?' cursor' | 'lcd '?' blink') _zoltctl_offer on off ;;
        config) _zoltctl_offer lcd analogue servo motor reboot ;;
        'config lcd' | 'config analogue' | 'config servo' | 'config motor' | 'config reboot')
            _zoltctl_offer $address
            ;;
        'config lcd '?) _zoltctl_offer self-test light ;;
        'config lcd '?' self-test' | 'config lcd '?' light') _zoltctl_offer on off ;;
        'config analogue '?) _zoltctl_offer mask store ;;
        'config servo '?) _zoltctl_offer end store restore ;;
        'config servo '?' end') _zoltctl_offer A B ;;
        'config servo '?' end '[AB]) _zoltctl_offer channel ;;
        'config servo '?' end '[AB]' channel') _zoltctl_offer 0 1 2 3 4 5 ;;
        'config motor '?) _zoltctl_offer silent-range store ;;
        'config motor '?' silent-range') _zoltctl_offer 0 1 2 ;;
        raw) _zoltctl_offer cae io ;;
    esac
}

# The options that the command ("" before it) takes.
_zoltctl_options() {
    _zoltctl_offer --host --cae-port --io-port --mon-port --config --line-end --timeout --json \
        --no-check --version --help
    case "$1" in
        cards) _zoltctl_offer --all ;;
        discover) _zoltctl_offer --force ;;
        watch) _zoltctl_offer --for --count --no-names ;;
        monitor) _zoltctl_offer --for --count ;;
    esac
}

# Whether a value follows the option.
_zoltctl_takes_value() {
    case "$1" in
        --host | --cae-port | --io-port | --mon-port | --config | --line-end | --timeout) ;;
        --for | --count) ;;
        *) return 1 ;;
    esac
}

# The values of an option, as far as they are known.
_zoltctl_value() {
    case "$1" in
        --host) mapfile -t COMPREPLY < <(compgen -A hostname -- "$cur") ;;
        --config)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$cur")
            ;;
        --line-end) _zoltctl_offer auto crlf lf cr ;;
    esac
}

_zoltctl() {
    local cur=${COMP_WORDS[COMP_CWORD]}
    local option='' word i path=()
    COMPREPLY=()
    # "=" is a word of its own here: "--host=name" are three words, and are taken
    # as "--host name".
    if [[ $cur == '=' ]]; then
        cur=''
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ $word == '=' ]]; then
            continue
        fi
        if [[ -n $option ]]; then
            option=''
        elif [[ $word == --* ]]; then
            if _zoltctl_takes_value "$word"; then
                option=$word
            fi
        else
            path+=("$word")
        fi
    done
    local IFS=' '
    if [[ -n $option ]]; then
        _zoltctl_value "$option"
    elif [[ $cur == -* ]]; then
        _zoltctl_options "${path[0]-}"
    else
        _zoltctl_arguments "${path[*]-}"
    fi
}

complete -F _zoltctl zoltctl
