#!/usr/bin/env bash
# Installs the Debian packages that are missing, and configures a build that is not configured yet.
# Usage: setup.sh PRESET [CMAKE-OPTION ...]
set -eu
cd "$(dirname "$0")/.."
preset=$1
shift
. scripts/packages.sh
install_missing g++ cmake ninja-build pkg-config libpixman-1-dev libhwy-dev libcairo2-dev libpango1.0-dev \
    libfontconfig-dev fonts-dejavu-core libgtest-dev qt6-base-dev qt6-image-formats-plugins \
    libjpeg62-turbo-dev libexif-dev liblcms2-dev liblz4-dev libxxhash-dev libxcb1-dev python3

if [ ! -f "build/$preset/build.ninja" ] || [ $# -gt 0 ]; then
    cmake --preset "$preset" "$@" >/dev/null
fi
