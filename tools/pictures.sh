#!/usr/bin/env bash
# Takes the pictures of the guide afresh: plays the tour and keeps those that a page shows.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

need_packages "${RUN_PACKAGES[@]}"
build_preset release vantrel vantrel-play
tools/tour.sh >/dev/null
mkdir -p docs/guide/pictures
for picture in build/tour/*.png; do
    if grep -qrF "pictures/${picture##*/}" README.md docs/guide --include='*.md'; then
        cp "$picture" docs/guide/pictures/
    fi
done
echo "Wrote $(ls docs/guide/pictures/*.png | wc -l) pictures to docs/guide/pictures/"
