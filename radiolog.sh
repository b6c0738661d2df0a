#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Carancho Radiolog: installs what is missing, builds, and starts the logbook.
#   ./radiolog.sh        build and start
#   ./radiolog.sh test   build and run every test headless
set -euo pipefail
cd "$(dirname "$0")"

PAQUETES=(cmake ninja-build g++ pkg-config
          qt6-base-dev qt6-qpa-plugins libqt6sql6-sqlite libsqlite3-dev qt6-serialport-dev
          qt6-multimedia-dev gstreamer1.0-plugins-base gstreamer1.0-plugins-good
          qt6-translations-l10n libbenchmark-dev fonts-dejavu-core)
# The tests also check the installed tree and the Debian package with the desktop's
# validators, groff and lintian, build the package with dpkg-shlibdeps, and read the
# manual's PDF back with pdftotext.
if [ "${1:-}" = "test" ]; then
    PAQUETES+=(desktop-file-utils appstream groff-base lintian dpkg-dev file poppler-utils)
fi

faltan=()
for p in "${PAQUETES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || faltan+=("$p")
done
if [ ${#faltan[@]} -gt 0 ]; then
    echo "Instalando: ${faltan[*]}"
    SUDO=""
    [ "$(id -u)" -ne 0 ] && SUDO="sudo"
    $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends "${faltan[@]}"
fi

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --parallel "$(nproc)"

if [ "${1:-}" = "test" ]; then
    export QT_QPA_PLATFORM=offscreen
    ctest --test-dir build --output-on-failure --parallel "$(nproc)"
else
    exec ./build/carancho-radiolog
fi
