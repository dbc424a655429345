#!/usr/bin/env bash
# screenshots.sh OUT [SIZE...]: drives the demo (./run demo makes it) on virtual displays of three sizes, by keys
# and by touch, and leaves pictures of every screen in the folder OUT.
set -euo pipefail
: "${1:?usage: screenshots.sh OUT [SIZE...]}"
exec python3 "$(dirname "$0")/screenshots.py" "$@"
