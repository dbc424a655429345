#!/usr/bin/env bash
# check_tidy.sh: what clang-tidy finds in all sources. check_tidy.sh NAME…: in those whose path contains a NAME.
# check_tidy.sh changed: in those that differ from the last commit.
set -euo pipefail
cd "$(dirname "$0")/.."
LOG_DIR="$PWD/build/log"
mkdir -p "$LOG_DIR"
. tools/packages.sh
# shellcheck disable=SC2086
install_packages $BUILD_PACKAGES $TEST_PACKAGES $TIDY_PACKAGES

cmake --preset tidy >"$LOG_DIR/tidy.log" 2>&1 || fail "cmake failed (see $LOG_DIR/tidy.log)"

names=("$@")
if [ "${1:-}" = changed ]; then
    mapfile -t names < <(git diff --name-only HEAD -- '*.cpp')
    [ "${#names[@]}" != 0 ] || exit 0
elif [ "$#" = 0 ]; then
    names=("^$PWD/(?!build/)")
fi
run-clang-tidy -quiet -p build/tidy "${names[@]}" >"$LOG_DIR/tidy.txt" 2>&1 || {
    grep -hE '^/.*(warning|error):' "$LOG_DIR/tidy.txt" | sort -u
    fail "clang-tidy found something (see $LOG_DIR/tidy.txt)"
}
say "clang-tidy found nothing"
