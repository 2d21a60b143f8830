#!/bin/bash
# session.sh COMMAND [ARGS...]: runs the command on a virtual display of its own, with a session bus
# for assistive technology, and where the kernel allows it on a network of its own with one Wi-Fi
# address, 192.168.1.37. Everything ends with the command, whose exit status it answers.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
screen=${TIDEWRIGHT_SCREEN:-1600x1200}

if [[ ${1-} == --with-network ]]; then
    shift
    ip link set lo up
    ip link add wlan0 type veth peer name air0
    ip address add 192.168.1.37/24 broadcast + dev wlan0
    ip link set wlan0 up
    ip link set air0 up
elif [[ ${1-} == --without-network ]]; then
    shift
elif unshare -rn "$here/session.sh" --with-network true 2>/dev/null; then
    exec unshare -rn "$here/session.sh" --with-network "$@"
fi
[[ ${1-} == true ]] && exit 0

XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
chmod 700 "$XDG_RUNTIME_DIR"
export LANG=${LANG:-C.UTF-8}
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
export DBUS_FATAL_WARNINGS=0 # the accessibility client trips over programs that just ended
unset QT_QPA_PLATFORM QT_QUICK_BACKEND WAYLAND_DISPLAY
# Only the command's own complaints are heard: the bus has some about what a container denies it.
exec 3>&2
xvfb-run -a -s "-screen 0 ${screen}x24 -nolisten tcp -noreset" \
    dbus-run-session -- bash -c 'exec "$@" 2>&3' -- "$@" 2>/dev/null
