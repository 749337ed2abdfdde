#!/usr/bin/env bash
# Plays one session script and holds what it gives against the files beside it. With --update these are written
# anew instead, to be reviewed.
#
#   play.sh [--update] PLAYER NAME
#
#   NAME.play            the script; it runs in a folder of its own
#   NAME.given.*         files that the script finds there, without the ".given"
#   NAME.before.sh       prepares that folder further
#   NAME.out             the transcript
#   NAME.err             standard error, of a script that ends at a step that cannot be done (exit status 1)
#   NAME.expected.*      files that the script must have written, without the ".expected"
#
# In transcripts @folder@ stands for the script's folder and @program@ for the program's.
set -euo pipefail

update=
if [ "$1" = --update ]; then
    update=yes
    shift
fi
player=$(realpath "$1")
name=$2
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
given=$folder/given
mkdir "$given"
failed=

# without PART FILE: the name of the file without the part that tells what it is for.
without() {
    local base=${2##*/}
    echo "${base/.$1./.}"
}

# hold EXPECTED GIVEN: one file against the other; a file that is not there is empty.
hold() {
    if [ -n "$update" ]; then
        if [ -s "$2" ]; then cp "$2" "$1"; else rm -f "$1"; fi
        return
    fi
    [ -e "$1" ] || set -- /dev/null "$2"
    diff -u --label "expected ${1##*/}" --label "given ${2##*/}" "$1" "$2" || failed=yes
}

for file in "$here/$name".given.*; do
    [ -e "$file" ] && cp "$file" "$given/$(without given "$file")"
done

[ -e "$here/$name.before.sh" ] && (cd "$given" && bash "$here/$name.before.sh")

status=0
(cd "$given" && "$player" --folder "$given" "$here/$name.play") >"$folder/raw.out" 2>"$folder/raw.err" || status=$?
for kind in out err; do
    sed -e "s|$given|@folder@|g" -e "s|${player%/*}|@program@|g" -e "s|$here/||g" "$folder/raw.$kind" >"$folder/$kind"
done

hold "$here/$name.out" "$folder/out"
hold "$here/$name.err" "$folder/err"
for file in "$here/$name".expected.*; do
    [ -e "$file" ] || continue
    written=$given/$(without expected "$file")
    [ -e "$written" ] || { : >"$written"; echo "${written##*/} has not been written"; }
    hold "$file" "$written"
done

should=0
[ -e "$here/$name.err" ] && should=1
if [ "$status" -ne "$should" ]; then
    echo "exit status $status instead of $should"
    failed=yes
fi
[ -z "$failed" ]
