#!/usr/bin/env bash
# Installs the Debian packages of the named sets; does nothing when all are there.
#
# usage: install-packages.sh [build|run|test|windows|windows-qt]...      (default: build)
#
# Needs root or sudo only when something is missing.
set -euo pipefail

packages_of() {
    case "$1" in
        build) echo "g++ cmake ninja-build pkg-config qt6-base-dev libexpected-dev zlib1g-dev libxcb1-dev libxcb-res0-dev libxcb-shape0-dev" \
                    "libxcb-xinput-dev libxcb-xtest0-dev" \
                    "libgl1-mesa-dev" ;;
        run) echo "python3 xdg-utils ca-certificates libqt6svg6 hicolor-icon-theme adwaita-icon-theme fonts-dejavu-core" \
                  "fonts-liberation xvfb openbox picom hsetroot dbus-daemon x11-utils imagemagick" \
                  "libxcb-xinput0 libsdl2-mixer-2.0-0 timgm6mb-soundfont" ;;
        test) echo "python3 clang lld libclang-rt-14-dev clang-format clang-tidy xvfb openbox picom hsetroot" \
                   "dbus-daemon dbus-bin xdotool wmctrl xterm x11-utils x11-xkb-utils x11-xserver-utils trayer imagemagick" \
                   "libsdl2-mixer-2.0-0 timgm6mb-soundfont libglib2.0-bin zip unzip p7zip-full" \
                   "libreoffice-writer-nogui abiword" ;;
        windows) echo "cmake ninja-build qt6-base-dev libexpected-dev g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine" \
                      "wine64 xz-utils python3 fonts-dejavu-core" ;;
        windows-qt) echo "dpkg-dev perl python3 cmake ninja-build" ;;
        *) echo "install-packages.sh: unknown set '$1' (there are: build run test windows windows-qt)" >&2; return 2 ;;
    esac
}

missing_of() {
    local installed package
    # dpkg-query fails for names it has never heard of, which is no failure here.
    installed=" $(dpkg-query -W -f='${Package}=${db:Status-Status} ' "$@" 2>/dev/null || true)"
    for package in "$@"; do
        [[ "$installed" == *" $package=installed "* ]] || echo "$package"
    done
}

as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

install() {
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=120)
    if [[ $EUID -ne 0 ]] && ! command -v sudo >/dev/null; then
        echo "install-packages.sh: these packages are missing, and there is neither root nor sudo:" >&2
        echo "  $*" >&2
        return 1
    fi
    echo "Installing: $*"
    # One unreachable extra source must not keep the others from being used.
    as_root "${apt[@]}" update || echo "install-packages.sh: the package lists may be old" >&2
    as_root "${apt[@]}" install --no-install-recommends "$@"
}

main() {
    local set names="" wanted missing
    for set in "${@:-build}"; do
        names+=" $(packages_of "$set")"
    done
    mapfile -t wanted < <(tr -s ' ' '\n' <<<"$names" | sed '/^$/d' | sort -u)
    if ! command -v dpkg-query >/dev/null; then
        echo "install-packages.sh: not a Debian system; what these packages hold has to be there: ${wanted[*]}" >&2
        return 0
    fi
    mapfile -t missing < <(missing_of "${wanted[@]}")
    if [[ ${#missing[@]} -gt 0 ]]; then
        install "${missing[@]}"
    fi
}

main "$@"
