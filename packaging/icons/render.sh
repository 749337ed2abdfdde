#!/usr/bin/env bash
# Draws the PNG sizes of the icon afresh from vantrel.svg.
set -euo pipefail
cd "$(dirname "$0")"
. ../../tools/packages.sh
need_packages "${ICON_PACKAGES[@]}"
for size in 16 22 24 32 48 64 128 256; do
    rsvg-convert --width "$size" --height "$size" --output "vantrel-$size.png" vantrel.svg
done
