#!/usr/bin/env bash
# Installs the Debian packages that are missing, and configures a build that is not configured yet.
# Usage: setup.sh PRESET [CMAKE-OPTION ...]
set -eu
cd "$(dirname "$0")/.."
preset=$1
shift

packages=(g++ cmake ninja-build pkg-config libpixman-1-dev libgtest-dev qt6-base-dev libxcb1-dev)
missing=()
for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing ${missing[*]}"
    as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "Run this as root, or install: ${missing[*]}" >&2; exit 1; }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

if [ ! -f "build/$preset/build.ninja" ] || [ $# -gt 0 ]; then
    cmake --preset "$preset" "$@" >/dev/null
fi
