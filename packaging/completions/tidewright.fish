complete -c tidewright -f
complete -c tidewright -l headless -d 'Émet sans fenêtre'
complete -c tidewright -l preset -x -d 'Imite une passerelle' \
    -a 'digital-yacht miniplex nke yacht-devices generic custom'
complete -c tidewright -l tcp-port -x -d 'Port TCP'
complete -c tidewright -l udp-port -x -d 'Port UDP'
complete -c tidewright -l ais -x -d 'Navires AIS simulés'
complete -c tidewright -l program -x -a 'sequence beat reach run' -d 'Programme de navigation'
complete -c tidewright -l wind-range -x -d 'Vent en nœuds, MIN-MAX'
complete -c tidewright -l polar -x -d 'Part de la polaire, en pour cent'
complete -c tidewright -l no-steps -d "Sans paliers d'équipage"
complete -c tidewright -l no-tcp -d 'Coupe la sortie TCP'
complete -c tidewright -l no-udp -d 'Coupe la sortie UDP'
complete -c tidewright -l help -d 'Aide'
complete -c tidewright -l version -d 'Version'
