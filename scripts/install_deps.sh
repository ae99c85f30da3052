#!/usr/bin/env bash
# Installs what the build, the tests and the demo need, on Debian and Ubuntu. Elsewhere it names what is needed
# and stops. Does nothing when everything is there.
set -euo pipefail

build_packages=(
    g++ cmake ninja-build ccache pkg-config clang-format git
    qt6-base-dev qt6-base-dev-tools qt6-webengine-dev libqt6svg6-dev libgl-dev
    libzip-dev zlib1g-dev libsqlite3-dev libsndfile1-dev libsamplerate0-dev libopenmpt-dev
    libgtest-dev googletest
)
# Qt's window system plug-ins, a virtual display, and letters for Latin and Cyrillic texts.
window_packages=(qt6-qpa-plugins xvfb x11-utils xkb-data fonts-noto-core fonts-dejavu-core)
# Other makers' zips for the tests, and a Windows program to really start. The tests that use them say so and
# skip where they are missing.
test_packages=(zip unzip p7zip-full gcc-mingw-w64-x86-64-win32 wine wine64 xauth)
# What the measurements stand beside.
bench_packages=(sqlite3 python3-minimal)

missing_of() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

if ! command -v apt-get >/dev/null 2>&1 || ! command -v dpkg-query >/dev/null 2>&1; then
    if command -v cmake >/dev/null 2>&1 && [ "${VANTROSK_DEPS:-}" = present ]; then
        exit 0
    fi
    cat >&2 <<EOF
This script knows Debian and Ubuntu. On this system please install, under its own names:
  a C++20 compiler, CMake 3.22, Ninja, pkg-config,
  Qt 6.4 or later with Widgets, Svg and WebEngine,
  libzip, zlib, SQLite 3, libsndfile, libsamplerate, libopenmpt, GoogleTest,
  Xvfb and fonts for Latin and Cyrillic; for all tests also zip, unzip, 7z, mingw-w64 and Wine.
Then run again with VANTROSK_DEPS=present.
EOF
    exit 1
fi

needed=()
while IFS= read -r package; do needed+=("$package"); done < <(missing_of "${build_packages[@]}" "${window_packages[@]}")
wanted=()
while IFS= read -r package; do wanted+=("$package"); done < <(missing_of "${test_packages[@]}" "${bench_packages[@]}")

[ "${#needed[@]}" -gt 0 ] || [ "${#wanted[@]}" -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null 2>&1 && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
        as_root=(sudo)
    elif [ "${#needed[@]}" -eq 0 ]; then
        echo "Not installed, so some tests or measurements will skip: ${wanted[*]}" >&2
        exit 0
    else
        echo "Please install as root: apt-get install ${needed[*]} ${wanted[*]}" >&2
        exit 1
    fi
fi

export DEBIAN_FRONTEND=noninteractive
install() { "${as_root[@]}" apt-get install -y -q --no-install-recommends "$@"; }

echo "Installing: ${needed[*]} ${wanted[*]}"
"${as_root[@]}" apt-get update -q
if [ "${#needed[@]}" -gt 0 ]; then
    install "${needed[@]}"
fi
if [ "${#wanted[@]}" -gt 0 ] && ! install "${wanted[@]}"; then
    for package in "${wanted[@]}"; do
        install "$package" || echo "Not to be had here, some tests or measurements will skip: $package" >&2
    done
fi
