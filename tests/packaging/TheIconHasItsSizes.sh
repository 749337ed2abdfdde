#!/usr/bin/env bash
# Each PNG of the icon is as large as its name says: width and height stand at byte 16 of a PNG file.
set -euo pipefail
for size in 16 22 24 32 48 64 128 256; do
    read -r width height < <(od -An -tu4 --endian=big -j16 -N8 "$1/icons/vantrel-$size.png")
    [ "$width" -eq "$size" ] && [ "$height" -eq "$size" ] || { echo "$size: $width x $height"; exit 1; }
done
