#!/usr/bin/env bash
# What the program says of a sample problem, held against a page that a teacher has read.
#
#   meaning.sh [--update] PLAYER PROBLEM
#
# meaning/PROBLEM.out is the transcript of a session that solves the problem in each way of interest; its lines
# behind "> " are the script, so that a new page begins with these alone. The lines that tell of dialogs are left out.
# With --update the page is written anew instead, to be read.
set -euo pipefail
update=
if [ "$1" = --update ]; then
    update=yes
    shift
fi
player=$1 problem=$2
page=$(cd "$(dirname "$0")" && pwd)/meaning/$(basename "$problem").out
[ -f "$page" ] || {
    echo "tests/problems/meaning has no page for $(basename "$problem"): write a script that solves it, each line"
    echo "behind \"> \", into ${page##*/} there, let $0 --update PLAYER PROBLEM complete it, and read it."
    exit 1
}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/Problems"
cp "$problem" "$scratch/Problems/"

sed -n 's/^> //p' "$page" >"$scratch/session.play"
grep -qx meaning "$scratch/session.play" || { echo "${page##*/} asks for no meaning"; exit 1; }
"$player" --folder "$scratch" "$scratch/session.play" >"$scratch/raw" || { cat "$scratch/raw"; exit 1; }
grep -vE '^(filedialog|modal) ' "$scratch/raw" >"$scratch/transcript"
if [ -n "$update" ]; then
    cp "$scratch/transcript" "$page"
else
    diff -u --label "expected ${page##*/}" --label given "$page" "$scratch/transcript"
fi
