#!/usr/bin/env bash
# bench.sh: what a user waits for and pays for, on the demo, as figures: time from exec to the painted menu
# (five starts), memory of both processes on the menu and while playing, processor time while playing.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/virtual_display.sh
demo="$PWD/build/demo"
[ -x "$demo/velkorandum" ] || { echo "run './run demo' first" >&2; exit 1; }
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work" XDG_CONFIG_HOME="$work/config"
cp -r "$demo"/{velkorandum,winamp,DB_UPDATE,skins,settings.ini} "$work/"
"$work/DB_UPDATE"
start_virtual_display 800x480

resident() { awk '/^VmRSS|^RssAnon/ {printf "%s %.1f MB  ", $1, $2 / 1024}' "/proc/$1/status"; }
busy() { awk '{print $14 + $15}' "/proc/$1/stat"; }
player() { pgrep -f "^$work/winamp" | head -n 1; }

for run in 1 2 3 4 5; do
    "$work/velkorandum" &
    system=$!
    sleep 2
    [ "$run" = 5 ] || { kill "$system"; wait "$system" || true; }
done
grep -o 'Main menu painted.*' "$work/debug.log"
echo "menu:    velkorandum $(resident "$system") winamp $(resident "$(player)")"
xdotool key Down Return; sleep 1
xdotool key Down Down Return; sleep 0.5
xdotool key Down Return; sleep 0.5
xdotool key Down Return; sleep 4
before=$(busy "$system") playerBefore=$(busy "$(player)")
sleep 10
echo "playing: velkorandum $(resident "$system") winamp $(resident "$(player)")"
echo "processor while playing, percent of one core: velkorandum" \
    "$(( ($(busy "$system") - before) * 10 / 100 ))" \
    "winamp $(( ($(busy "$(player)") - playerBefore) * 10 / 100 ))"
kill "$system"; wait "$system" || true
