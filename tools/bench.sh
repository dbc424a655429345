#!/usr/bin/env bash
# bench.sh: what a user waits for and pays for, on the demo, as figures: time from exec to the painted menu
# (five starts), memory of both processes on the menu and while playing, processor time with the
# player in front: cover, moving title, time and list.
# bench.sh scan: the catalogue server beside MPD, TagLib and a bare walk, on 20,000 generated files.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "${1:-}" = scan ]; then
    shift
    LOG_DIR="$PWD/build/log"
    mkdir -p "$LOG_DIR"
    . tools/packages.sh
    # shellcheck disable=SC2086
    install_packages $BUILD_PACKAGES $DEMO_PACKAGES $SCAN_BENCH_PACKAGES
    { cmake --preset bench && cmake --build --preset bench --target DB_UPDATE bench_taglib; } \
        >"$LOG_DIR/bench.log" 2>&1 || fail "the build failed (see $LOG_DIR/bench.log)"
    exec python3 bench/bench_scan_peers.py "$@"
fi
. tools/virtual_display.sh
demo="$PWD/build/demo"
[ -x "$demo/velkorandum" ] || { echo "run './run demo' first" >&2; exit 1; }
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work" XDG_CONFIG_HOME="$work/config"
cp -r "$demo"/{velkorandum,winamp,DB_UPDATE,tags_empty.mdb,skins,settings.ini} "$work/"
"$work/DB_UPDATE"
# The list that is resumed: a folder with pictures, from its track whose title is too long for its line.
mkdir -p build/log
find "$demo/media" -path '*/The Last Boat Home/*.mp3' | sort >"$work/vk_audio.m3u"
long=$(($(grep -n 'The Very Long Way' "$work/vk_audio.m3u" | cut -d: -f1) - 1))
build/release/tools/vkini set "$work/settings.ini" audio_player currenttrack "$long"
build/release/tools/vkini set "$work/settings.ini" main CurrentSelectID 0
start_virtual_display 800x480

resident() { awk '/^VmRSS|^RssAnon/ {printf "%s %.1f MB  ", $1, $2 / 1024}' "/proc/$1/status"; }
busy() { awk '{print $14 + $15}' "/proc/$1/stat"; }
percent() { awk -v ticks="$1" 'BEGIN {printf "%.1f", ticks / 10}'; } # of one core, over ten seconds
player() { pgrep -f "^$work/winamp" | head -n 1; }

for run in 1 2 3 4 5; do
    "$work/velkorandum" &
    system=$!
    sleep 2
    [ "$run" = 5 ] || { kill "$system"; wait "$system" || true; }
done
grep -o 'Main menu painted.*' "$work/debug.log"
echo "menu:    velkorandum $(resident "$system") winamp $(resident "$(player)")"
xdotool key Return; sleep 4
xdotool key Return; sleep 3 # where there is no sound card, the box that tells so
before=$(busy "$system") playerBefore=$(busy "$(player)")
sleep 10
echo "playing: velkorandum $(resident "$system") winamp $(resident "$(player)")"
echo "processor while playing, percent of one core: velkorandum" \
    "$(percent $(($(busy "$system") - before)))" \
    "winamp $(percent $(($(busy "$(player)") - playerBefore)))"
take_picture "$PWD/build/log/bench.png" # what was measured
kill "$system"; wait "$system" || true
