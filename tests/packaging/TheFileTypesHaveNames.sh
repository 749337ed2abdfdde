#!/usr/bin/env bash
# The shared-mime database takes the extensions of all modules, in any case.
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/mime/packages"
cp "$1/vantrel-mime.xml" "$scratch/mime/packages/"
update-mime-database "$scratch/mime" 2>"$scratch/errors" || { cat "$scratch/errors"; exit 1; }

extensions=$(sed -nE 's/.*\.Extension = "([^"]+)".*/\L\1/p' "$(dirname "$0")/../../src/modules.cpp" | sort -u)
[ -n "$extensions" ] || { echo "the table of modules holds no extension"; exit 1; }
for extension in $extensions; do
    type=$(awk -F: -v glob="*.$extension" '$3 == glob { print $2 }' "$scratch/mime/globs2")
    [ -n "$type" ] || { echo "no type for .$extension"; exit 1; }
    grep -q '<comment>Vantrel ' "$scratch/mime/$type.xml" || { echo "no name for $type"; exit 1; }
done
