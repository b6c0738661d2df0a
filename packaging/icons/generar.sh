#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Draws the PNG sizes of the icon from its SVG. The PNGs are committed, so the build
# needs no SVG renderer; run this again after changing the drawing (needs librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"
for n in 48 128 256; do
    mkdir -p "${n}x${n}"
    rsvg-convert -w "$n" -h "$n" ar.carancho.radiolog.svg -o "${n}x${n}/ar.carancho.radiolog.png"
done
