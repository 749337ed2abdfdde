#!/usr/bin/env bash
# the_book_is_whole.sh BUILD: the PDF file of the guide is made, and it holds every heading and every line of a
# block of the pages for users.
set -euo pipefail
build=$1
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --build "$build" --target guide_pdf >"$scratch/log" || { cat "$scratch/log"; exit 1; }
pdftotext -layout "$build/docs/guide/vantrel-guide.pdf" - | sed -e 's/  */ /g; s/^ //; s/ $//' >"$scratch/book"
tr '\n' ' ' <"$scratch/book" | tr -s ' ' >"$scratch/running"

failed=
checked=0
while IFS= read -r heading; do
    checked=$((checked + 1))
    grep -qF -- "$heading" "$scratch/running" || { echo "the book has no heading: $heading"; failed=yes; }
done < <(sed -n '/^```/,/^```$/d; s/^##* //p' "$here"/../../docs/guide/*.md | tr -d '`' | sort -u)
[ "$checked" -gt 80 ] || { echo "only $checked headings"; failed=yes; }

awk '/^```/ { inside = !inside; next } inside { gsub(/ +/, " "); sub(/^ /, ""); sub(/ $/, ""); if ($0 != "") print }' \
    "$here"/../../docs/guide/*.md | sort -u >"$scratch/lines"
[ "$(wc -l <"$scratch/lines")" -gt 300 ] || { echo "too few lines of blocks"; failed=yes; }
# A long line is broken in the book.
awk 'NR == FNR { book = $0; next } !index(book, $0) { print "the book lacks: " $0; failed = 1 } END { exit failed }' \
    "$scratch/running" "$scratch/lines" || failed=yes
[ -z "$failed" ]
