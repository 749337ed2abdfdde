#!/usr/bin/env bash
# Plays the scripts of docs/tour/ on the screens of the release build: the transcript, the report and a
# picture of the window of each go to build/tour/.
set -euo pipefail
cd "$(dirname "$0")/.."
tour=build/tour

rm -rf "$tour"
mkdir -p "$tour"
cp -r Problems "$tour/"
for script in docs/tour/*.play; do
    name=$(basename "$script" .play)
    if ! build/release/bin/vantrel-play --folder "$tour" "$script" >"$tour/$name.transcript"; then
        echo "The tour stopped at $script; see $tour/$name.transcript." >&2
        exit 1
    fi
    if [ -e "$tour/$name.OUT" ]; then
        echo "Solved $name: $tour/$name.OUT, $tour/$name.png"
    else
        echo "Tried $name, which has no report: $tour/$name.png"
    fi
done

shown=$tour/linear-programming.OUT
echo
echo "$shown:"
echo
cat "$shown"
echo
echo "The other reports, and a picture of the window for each, are in $tour/."
