#!/usr/bin/env bash
# bench.sh: what a user waits for and pays for, on the demo, as figures: time from exec to the painted menu
# (ten starts), memory of both processes on the menu and while playing, processor time with the
# player in front (cover, moving title, time and list), and from a key to its picture where that is built.
# bench.sh scan: the catalogue server beside MPD, TagLib and a bare walk, on 20,000 generated files.
set -euo pipefail
cd "$(dirname "$0")/.."
LOG_DIR="$PWD/build/log"
mkdir -p "$LOG_DIR"
. tools/packages.sh
if [ "${1:-}" = scan ]; then
    shift
    # shellcheck disable=SC2086
    install_packages $BUILD_PACKAGES $DEMO_PACKAGES $SCAN_BENCH_PACKAGES
    { cmake --preset bench && cmake --build --preset bench --target DB_UPDATE bench_taglib; } \
        >"$LOG_DIR/bench.log" 2>&1 || fail "the build failed (see $LOG_DIR/bench.log)"
    exec python3 bench/bench_scan_peers.py "$@"
fi
# shellcheck disable=SC2086
install_packages $TEST_PACKAGES
exec python3 tools/bench_system.py
