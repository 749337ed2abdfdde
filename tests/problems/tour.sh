#!/usr/bin/env bash
# tour.sh PLAYER SCRIPT: a part of the tour plays to its end and leaves two pictures and a report with the answers
# that were found by another road (answers/, where the first line tells which). A problem without a report has the
# message in its answers that comes instead.
set -euo pipefail
player=$1 script=$2
name=$(basename "$script" .play)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -r "$(dirname "$script")/../../Problems" "$scratch/"

"$player" --folder "$scratch" "$script" >"$scratch/transcript" || { cat "$scratch/transcript"; exit 1; }
if grep '^msgbox critical' "$scratch/transcript"; then exit 1; fi
answers=$(dirname "$0")/answers/$name.txt
results="$name.png $name-problem.png"
page=$scratch/$name.OUT
if grep -q '^msgbox' "$answers"; then
    page=$scratch/transcript
else
    results+=" $name.OUT"
fi
for result in $results; do
    [ -s "$scratch/$result" ] || { echo "there is no $result"; exit 1; }
done

tail -n +2 "$answers" | while IFS= read -r line; do
    grep -qF -- "$line" "$page" || { echo "${page##*/} lacks: $line"; exit 1; }
done
