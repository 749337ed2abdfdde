#!/usr/bin/env bash
# The package holds both programs and their folder of problems, and lintian finds no error in it.
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
chmod 755 "$scratch"
umask 022

cpack -G DEB --config "$1/CPackConfig.cmake" -B "$scratch" >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
package=$(echo "$scratch"/vantrel_*.deb)
dpkg-deb --contents "$package" >"$scratch/contents"
for file in ./usr/bin/vantrel ./usr/bin/vantrel-play ./usr/lib/vantrel/vantrel ./usr/lib/vantrel/Problems/ \
    ./usr/share/applications/vantrel.desktop ./usr/share/man/man1/vantrel.1.gz; do
    awk -v file="$file" '$6 == file { found = 1 } END { exit !found }' "$scratch/contents" ||
        { echo "the package lacks $file"; exit 1; }
done
lintian --allow-root --fail-on error "$package"
