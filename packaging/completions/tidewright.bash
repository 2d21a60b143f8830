# bash completion for tidewright

_tidewright() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    case $before in
        --preset)
            mapfile -t COMPREPLY < <(compgen -W \
                "digital-yacht miniplex nke yacht-devices generic custom" -- "$word")
            ;;
        --program) mapfile -t COMPREPLY < <(compgen -W "sequence beat reach run" -- "$word") ;;
        --tcp-port | --udp-port | --ais | --wind-range | --polar) COMPREPLY=() ;;
        *)
            mapfile -t COMPREPLY < <(compgen -W "--headless --preset --tcp-port --udp-port --ais \
                --program --wind-range --polar --no-steps --no-tcp --no-udp --help --version" \
                -- "$word")
            ;;
    esac
}
complete -F _tidewright tidewright
