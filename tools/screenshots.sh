#!/usr/bin/env bash
# screenshots.sh OUT: drives the demo (./run demo makes it) on virtual displays of three sizes, by keys
# and by touch, and leaves pictures of every screen in the folder OUT.
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
    cp -r "$demo"/{velkorandum,winamp,DB_UPDATE,tags_empty.mdb,skins,settings.ini} "$app/"
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

# row N: touches the N-th row of the browser's list.
row() {
    xdotool mousemove $((width / 3)) $((height * 11 / 100 + 45 * $1 - 18)) click 1
    sleep 0.8
}

# The start is short: pictures as fast as they come, and the last dark one is kept, as the menu is light.
loading_frames() {
    local n shade
    for n in $(seq 10 80); do
        xwd -root -silent >"$work/frame$n.xwd" 2>/dev/null || true
    done
    mogrify -format png "$work"/frame*.xwd
    for n in $(seq 80 -1 10); do
        shade=$(identify -format '%[fx:int(1000*mean)]' "$work/frame$n.png")
        [ "$shade" -gt 8 ] && [ "$shade" -lt 200 ] || continue
        cp "$work/frame$n.png" "$out/$1-${width}x$height.png"
        break
    done
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
    key Down Down Return; sleep 3; key Return; sleep 1; shot player # without a sound card a box came
    key Right; sleep 17 # the position is saved every 15 seconds
    kill -KILL "$system"; wait "$system" 2>/dev/null || true
    start
    key Up Return; sleep 3; key Return; sleep 1; shot resumed
    key Escape; sleep 0.5
    stop -TERM
    set_key main Time1 "11:58:00 PM"
    start
    shot menu-night
    key Down Return; sleep 1; shot browser-night
    stop -TERM
}

# The catalogue, the keyboard, a list in the making and the settings.
library() {
    fresh_app
    start
    key Down Return Return; sleep 1; shot database
    key Down Return; sleep 1; shot database-artists
    key Down Return; sleep 1; shot database-titles
    stop -TERM
    fresh_app
    start
    key Down Return Down Return; sleep 1; shot build
    key Down Down Return Down Return Down Return; sleep 1; shot build-list
    stop -TERM
    start
    key p; sleep 1; shot settings
    for page in $(seq 1 6); do key Down; shot "settings-$page"; done
    stop -TERM
}

by_touch() {
    fresh_app
    start
    tap 37 25; shot touch-browser
    row 3; shot touch-artist
    row 2; shot touch-album
    row 3; sleep 3; tap 50 63; sleep 1; shot touch-player
    tap 50 92; sleep 1; shot touch-playing
    tap 5 92; sleep 1; shot touch-menu
    stop -TERM
}

for size in 640x480 800x480 1024x768; do
    width=${size%x*} height=${size#*x}
    start_virtual_display "$size"
    by_keys
    library
    by_touch
    stop_virtual_display
done
echo "pictures are in $out"
