#!/usr/bin/env bash
# examples_run.sh PLAYER PAGE: each block ```play NAME of a page of the guide plays to its end in a folder with
# the sample problems, and gives the transcript of the block ```transcript NAME, where there is one. Each block
# ```file NAME is a sample problem, or a file that an example has written.
set -euo pipefail
player=$1 page=$2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -r "$here/../../Problems" "$scratch/"

# block HEADING: the block of the page.
block() { awk -v heading="$1" -f "$here/blocks.awk" "$page" | sed '$d'; }
names() { sed -n "s/^\`\`\`$1 //p" "$page"; }

failed=
[ -n "$(names play)" ] || { echo "the page shows no example"; failed=yes; }
while IFS= read -r name; do
    block "play $name" >"$scratch/$name.play"
    if ! "$player" --folder "$scratch" "$scratch/$name.play" >"$scratch/$name.transcript"; then
        cat "$scratch/$name.transcript"
        failed=yes
    fi
    sed -i -e "s|$(realpath "${player%/*}")|/usr/lib/vantrel|g" "$scratch/$name.transcript"
done < <(names play)
while IFS= read -r name; do
    diff -u <(block "transcript $name") <(sed 's/ *$//' "$scratch/$name.transcript") || failed=yes
done < <(names transcript)
while IFS= read -r name; do
    file=$scratch/$name
    [ -e "$file" ] || file=$scratch/Problems/$name
    diff -u <(block "file $name") <(tr -d '\r' <"$file") || failed=yes
done < <(names file)
[ -z "$failed" ]
