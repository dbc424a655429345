# A display where there is none. Sourced. What is started here ends with the shell, whatever ends that.

# start_virtual_display WIDTHxHEIGHT: starts Xvfb on a free number and exports DISPLAY.
start_virtual_display() {
    local numbers
    numbers=$(mktemp)
    setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 "$1x24" -dpi 96 -nolisten tcp 3>"$numbers" >/dev/null 2>&1 &
    XVFB=$!
    for _ in $(seq 100); do
        [ -s "$numbers" ] && break
        kill -0 "$XVFB" 2>/dev/null || break
        sleep 0.05
    done
    DISPLAY=":$(cat "$numbers")"
    rm -f "$numbers"
    [ "$DISPLAY" != ":" ] || { echo "velkorandum: no virtual display could be started" >&2; exit 1; }
    export DISPLAY QT_QPA_PLATFORM=xcb
}

stop_virtual_display() { kill "$XVFB" 2>/dev/null || true; }

# take_picture FILE: what the display shows now.
take_picture() {
    xwd -root -silent 2>/dev/null | mogrify_to_png "$1"
}

# mogrify is in every ImageMagick; convert may be somebody else's.
mogrify_to_png() {
    local raw="${1%.png}.xwd"
    cat >"$raw"
    [ -s "$raw" ] && mogrify -format png "$raw" 2>/dev/null
    rm -f "$raw"
}

# keep_picture FILE: a new picture every two seconds.
keep_picture() {
    while sleep 2 && kill -0 $$ 2>/dev/null; do take_picture "$1"; done
}
