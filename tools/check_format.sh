#!/usr/bin/env bash
# check_format.sh: finds what clang-format would write in another way. check_format.sh fix: writes it that way.
set -euo pipefail
cd "$(dirname "$0")/.."
how=(--dry-run -Werror)
[ "${1:-}" = fix ] && how=(-i)
find . -path ./build -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -P "$(nproc)" -n 40 clang-format "${how[@]}"
