#!/usr/bin/env bash
# Builds the launcher, lays it out as a portable folder in build/portable and starts it from there.
# Arguments go to the program. Without a display it shows the panel on a virtual one and leaves a picture in
# build/panel.png.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
portable="$root/build/portable"
picture="$root/build/panel.png"

build() (
    cd "$root"
    cmake --preset release
    cmake --build --preset release --target paneda
    cmake --install build/release --prefix "$portable"
)

start() {
    if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
        exec "$portable/paneda" "$@"
    fi
    echo "There is no display: the panel is shown on a virtual one."
    "$root/tools/with-desktop" --compositor --screen 1280x800x24 -- \
        "$root/tools/panel-picture" "$picture" "$portable/paneda" "$@" || {
        echo "run.sh: the panel could not be shown." >&2
        exit 1
    }
    echo "Picture of the panel: $picture"
}

"$root/tools/install-packages.sh" build run
build
# A store that exists is the user's.
if [[ ! -e $portable/Setting ]]; then
    "$root/tools/make-starter-store" "$portable"
fi
start "$@"
