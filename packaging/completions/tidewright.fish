complete -c tidewright -f
complete -c tidewright -l headless -d "émet sans fenêtre, jusqu'à Ctrl-C"
complete -c tidewright -l preset -x -d "imite les ports et l'identifiant GPS d'une passerelle" -a 'digital-yacht miniplex nke yacht-devices generic custom'
complete -c tidewright -l tcp-port -x -d "port TCP, 1 à 65535"
complete -c tidewright -l udp-port -x -d "port UDP, 0 à 65535"
complete -c tidewright -l no-tcp -d "coupe la sortie TCP"
complete -c tidewright -l no-udp -d "coupe la sortie UDP"
complete -c tidewright -l ais -x -d "navires AIS simulés"
complete -c tidewright -l program -x -d "programme de navigation" -a 'sequence beat reach run'
complete -c tidewright -l wind-range -x -d "vent en nœuds, par exemple 8-16"
complete -c tidewright -l polar -x -d "part de la polaire atteinte, ramenée entre 70 et 115"
complete -c tidewright -l no-steps -d "sans les paliers d'équipage"
complete -c tidewright -l set -x -d "un réglage, voir --settings ; peut être répétée"
complete -c tidewright -l settings -d "la liste des réglages"
complete -c tidewright -l help -d "cette aide"
complete -c tidewright -l version -d "la version"
