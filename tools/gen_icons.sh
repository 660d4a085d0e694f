#!/usr/bin/env bash
# Renders the PNG sizes of the icon from data/icons/tessaly.svg into the
# hicolor layout beside it. The PNGs are committed, so the build needs no
# SVG renderer; run this again after changing the SVG (needs librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")/../data/icons"
for size in 16 22 24 32 48 64 128 256; do
  mkdir -p "hicolor/${size}x${size}/apps"
  rsvg-convert -w "$size" -h "$size" tessaly.svg -o "hicolor/${size}x${size}/apps/tessaly.png"
done
