#!/bin/bash
# look_at_window.sh ROOT PICTURE: starts the window that is installed in the Debian under ROOT,
# photographs it into PICTURE once it is painted, and ends it.
# Run it through tests/system/window/session.sh.
set -euo pipefail
root=$1 picture=$2

painted() {
    local window
    window=$(xdotool search --onlyvisible --name '^Tidewright$' | head -n 1)
    [ -n "$window" ] && import -window "$window" "$picture" &&
        [ "$(identify -format %k "$picture")" -gt 500 ]
}

cp "$XAUTHORITY" "$root/root/.Xauthority"
install -d -m 700 "$root/root/runtime"
env -i PATH=/usr/sbin:/usr/bin:/bin HOME=/root XDG_RUNTIME_DIR=/root/runtime LANG=C.UTF-8 \
    DISPLAY="$DISPLAY" chroot "$root" tidewright &
program=$!
trap 'kill -KILL $program 2>/dev/null' EXIT

deadline=$((SECONDS + 60))
until painted; do
    if [ $SECONDS -ge $deadline ] || ! kill -0 $program; then
        echo "the window did not appear" >&2
        exit 1
    fi
    sleep 0.2
done
kill -TERM $program
trap - EXIT
wait $program
