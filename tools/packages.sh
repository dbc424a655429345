# The Debian packages that the system needs, and how they are installed. Sourced by run, test and tools.

BUILD_PACKAGES="g++ cmake ninja-build ccache pkg-config python3 qt6-base-dev qt6-serialport-dev \
libsqlite3-dev nlohmann-json3-dev libxcb1-dev libxcb-res0-dev libxcb-xinput-dev libxcb-randr0-dev libsystemd-dev libgpiod-dev \
libvlc-dev libasound2-dev libtag1-dev librsvg2-bin imagemagick fonts-dejavu-core"
RUN_PACKAGES="libqt6gui6 libqt6widgets6 libqt6serialport6 libxcb1 libxcb-res0 libxcb-xinput0 libxcb-randr0 libsystemd0 libgpiod2 \
libsqlite3-0 libtag1v5 vlc-plugin-base libvlc-bin \
navit navit-gui-internal navit-graphics-gtk-drawing-area maptool dbus \
libasound2 libasound2-plugins fonts-dejavu-core fonts-droid-fallback fonts-freefont-ttf xvfb x11-apps imagemagick"
DEMO_PACKAGES="ffmpeg"
SCAN_BENCH_PACKAGES="libbenchmark-dev mpd"
TEST_PACKAGES="dbus python3-dbusmock xterm procps libgtest-dev libgmock-dev xvfb xauth xdotool openbox x11-utils \
pulseaudio clang-format ffmpeg dvdauthor genisoimage"
TIDY_PACKAGES="clang clang-tidy libbenchmark-dev"

say() { printf '%s\n' "velkorandum: $*"; }

fail() {
    printf '%s\n' "velkorandum: $*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "not root and no sudo: please install by hand: $MISSING"
    fi
}

# install_packages NAME…: installs what is missing, in one go; asks nothing.
install_packages() {
    MISSING=""
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            MISSING="$MISSING $package"
    done
    [ -n "$MISSING" ] || return 0
    command -v apt-get >/dev/null || fail "no apt-get here; needed:$MISSING"
    say "installing Debian packages:$MISSING"
    # shellcheck disable=SC2086
    as_root env DEBIAN_FRONTEND=noninteractive sh -c "apt-get update -qq &&
        apt-get install -y -qq --no-install-recommends $MISSING" >"$LOG_DIR/apt.log" 2>&1 ||
        fail "could not install:$MISSING (see $LOG_DIR/apt.log)"
}
