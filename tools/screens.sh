#!/usr/bin/env bash
# Takes a picture of every screen at three widths, at 100 % and 200 %, in light and dark: build/screens/, sheets
# of six beside them where ImageMagick is installed.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

need_packages "${RUN_PACKAGES[@]}"
cmake --preset dev >/dev/null
cmake --build --preset dev --target screens >/dev/null
rm -rf build/screens
for width in 640 1024 1600; do
    for scale in 1 2; do
        for colors in light dark; do
            folder=build/screens/$width-${scale}00-$colors
            mkdir -p "$folder"
            cp -r Problems "$folder/"
            QT_SCALE_FACTOR=$scale build/dev/bin/screens $((width * scale)) "$colors" "$folder" tools/screens.play \
                >"$folder/transcript" || echo "The screens stopped: see $folder/transcript." >&2
            rm -r "$folder/Problems"
            if command -v montage >/dev/null; then
                montage "$folder"/*.png -tile 3x2 -geometry 800x600+6+6 "$folder-sheet-%02d.png"
            fi
        done
    done
done
echo "The pictures are in build/screens/."
