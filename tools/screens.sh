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

# sheets FOLDER: six pictures at a time, so that the largest fit into the memory that montage may take.
sheets() {
    command -v montage >/dev/null || return 0
    local pictures=("$1"/*.png) first
    for ((first = 0; first < ${#pictures[@]}; first += 6)); do
        montage "${pictures[@]:first:6}" -tile 3x2 -geometry 800x600+6+6 \
            "$(printf '%s-sheet-%02d.png' "$1" $((first / 6)))"
    done
}

for width in 640 1024 1600; do
    for scale in 1 2; do
        for colors in light dark; do
            folder=build/screens/$width-${scale}00-$colors
            mkdir -p "$folder"
            cp -r Problems "$folder/"
            QT_SCALE_FACTOR=$scale build/dev/bin/screens $((width * scale)) "$colors" "$folder" tools/screens.play \
                >"$folder/transcript" 2>"$folder/messages" || echo "The screens stopped: see $folder/transcript." >&2
            rm -r "$folder/Problems"
            sheets "$folder"
        done
    done
done
echo "The pictures are in build/screens/."
