#!/usr/bin/env bash
# screenshots.sh OUT: drives the demo (./run demo makes it) on virtual displays of two sizes, by keys and by
# touch, and leaves pictures of every screen in the folder OUT.
set -euo pipefail
out="$(mkdir -p "${1:?usage: screenshots.sh OUT}" && cd "$1" && pwd)"
cd "$(dirname "$0")/.."
. tools/virtual_display.sh
demo="$PWD/build/demo"
vkini="$PWD/build/release/tools/vkini"
[ -x "$demo/velkorandum" ] || { echo "run './run demo' first" >&2; exit 1; }

work=$(mktemp -d)
app="$work/app"
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work" XDG_CONFIG_HOME="$work/config"

# An application directory of its own on the demo's music: the demo's state stays as it is.
fresh_app() {
    rm -rf "$app"
    mkdir "$app"
    cp -r "$demo"/{velkorandum,winamp,DB_UPDATE,skins,settings.ini} "$app/"
    "$app/DB_UPDATE"
    set_key main Time1 "12:00:00 AM"
    set_key main Time2 "11:59:00 PM"
}
set_key() { "$vkini" set "$app/settings.ini" "$@"; }

start() {
    "$app/velkorandum" &
    system=$!
    [ "${1:-}" = frames ] && loading_frames "$2"
    sleep 2
}
stop() {
    kill "$1" "$system" 2>/dev/null || true
    wait "$system" 2>/dev/null || true
    sleep 0.5
}
key() { for name in "$@"; do xdotool key "$name"; sleep 0.5; done; }
# tap X Y: in hundredths of the screen.
tap() {
    xdotool mousemove $((width * $1 / 100)) $((height * $2 / 100)) click 1
    sleep 0.8
}
shot() { take_picture "$out/$1-${width}x$height.png"; }

# The start is short: pictures as fast as they come, and the last one that is not yet the menu is kept.
loading_frames() {
    local n
    for n in $(seq 10 60); do
        xwd -root -silent >"$work/frame$n.xwd" 2>/dev/null || true
        sleep 0.01
    done
    mogrify -format png "$work"/frame*.xwd
    local previous="" last
    last=$(md5sum <"$work/frame60.png")
    for n in $(seq 10 60); do
        [ "$(md5sum <"$work/frame$n.png")" = "$last" ] && break
        previous="$work/frame$n.png"
    done
    [ -z "$previous" ] || cp "$previous" "$out/$1-${width}x$height.png"
    rm -f "$work"/frame*
}

by_keys() {
    fresh_app
    start frames loading
    shot menu-day
    key Right; shot menu-chosen
    key Left Down Return; sleep 1; shot browser-top
    key Down Down Return; sleep 0.5; shot browser-artist
    key Down Return; sleep 0.5; shot browser-album
    key Down Down Return; sleep 4; shot player
    key Right; sleep 2
    kill -KILL "$system"; wait "$system" 2>/dev/null || true
    start
    key Up Return; sleep 3; shot resumed
    key Escape; sleep 0.5
    stop -TERM
    set_key main Time1 "11:58:00 PM"
    start
    shot menu-night
    key Down Return; sleep 1; shot browser-night
    stop -TERM
}

by_touch() {
    fresh_app
    start
    tap 50 30; shot touch-browser
    tap 40 40; shot touch-artist
    tap 40 40; shot touch-album
    tap 40 40; sleep 3; shot touch-player
    stop -TERM
}

for size in 800x480 1024x600; do
    width=${size%x*} height=${size#*x}
    start_virtual_display "$size"
    by_keys
    by_touch
    stop_virtual_display
done
echo "pictures are in $out"
