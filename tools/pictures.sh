#!/usr/bin/env bash
# Takes the pictures of the guide afresh: plays the tour and keeps what it shows.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

need_packages "${RUN_PACKAGES[@]}"
build_preset release vantrel vantrel-play
tools/tour.sh >/dev/null
mkdir -p docs/guide/pictures
cp build/tour/*.png docs/guide/pictures/
echo "Wrote $(ls docs/guide/pictures/*.png | wc -l) pictures to docs/guide/pictures/"
