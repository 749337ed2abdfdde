#!/usr/bin/env bash
# The guide is installed where the program looks for it: from its own folder two up, with all of its pages and what
# the search needs.
set -euo pipefail
build=$1
[ -e "$build/docs/guide/index.html" ] || exit 0
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/usr" >/dev/null

guide=$scratch/usr/lib/vantrel/../../share/doc/vantrel/guide
grep -q '"../../share/doc/vantrel/guide"' "$(dirname "$0")/../../src/qt/dialogs.cpp" ||
    { echo "the program looks elsewhere"; exit 1; }
sources=$(dirname "$0")/../../docs/guide
for page in "$sources"/*.md "$sources"/developers/*.md "$sources"/word-index.md; do
    name=${page#"$sources/"}
    grep -q '</html>' "$guide/${name%.md}.html" || { echo "there is no page ${name%.md}"; exit 1; }
done
for name in guide.css search.js sections.js; do
    [ -s "$guide/$name" ] || { echo "there is no $name"; exit 1; }
done
[ -n "$(ls "$guide/pictures")" ]
