# bash completion for tidewright

_tidewright() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
    case $before in
        --preset) words="digital-yacht miniplex nke yacht-devices generic custom" ;;
        --program) words="sequence beat reach run" ;;
        --output | --replay | --scenario)
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
            return
            ;;
        --tcp-port | --udp-port | --ais | --wind-range | --polar | --set | --seed | --start | --speed | --duration) words= ;;
        *) words="--headless --preset --tcp-port --udp-port --no-tcp --no-udp --ais --program --wind-range --polar --no-steps --set --seed --start --speed --duration --output --free-port --replay --replay-loop --scenario --settings --help --version" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _tidewright tidewright
