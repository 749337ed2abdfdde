#!/usr/bin/env bash
# Installed elsewhere and started through its link, the program takes the folder Problems beside itself.
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$1" --prefix "$scratch/usr" >/dev/null

cat >"$scratch/session.play" <<'END'
choose 12
session
END
"$scratch/usr/bin/vantrel-play" "$scratch/session.play" >"$scratch/transcript"
folder=$(sed -n 's/^ProblemFolder "\{0,1\}\([^"]*\)"\{0,1\}$/\1/p' "$scratch/transcript")
[ "$folder" = "$scratch/usr/lib/vantrel/Problems" ] || { echo "the folder is '$folder'"; exit 1; }
[ -n "$(ls "$folder")" ] || { echo "there is no problem in $folder"; exit 1; }
