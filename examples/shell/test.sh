#!/usr/bin/env bash
# Plays a scenario to the app. Exit status: 0 when the app did well, 3 when it did not.
set -euo pipefail

here=$(dirname "$0")
tidewright=${TIDEWRIGHT:-tidewright}
scenario=${1:-$here/../passerelle-qui-revient.yaml}

exec 3< <(exec timeout 60 "$tidewright" --headless --free-port --scenario "$scenario" 2>&1)
program=$!
trap 'kill "$program" ${app-} 2>/dev/null || true' EXIT

while read -r line <&3; do
    echo "$line"
    case $line in "TCP "*) port=${line##*:} && break ;; esac
done

if [ -n "${port-}" ]; then
    "$here/app.sh" "$port" 2>/dev/null & # yours stands here
    app=$!
    cat <&3
fi
wait "$program"
