#!/usr/bin/env bash
# limit.sh PLAYER PROGRAM: an account whose files may not grow. The signal that comes with it ends neither program; the
# user is told of a full disk.
set -euo pipefail
player=$1 program=$2
scratch=$(mktemp -d)
running=
finish() {
    [ -z "$running" ] || kill "$running" 2>/dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT

mkdir "$scratch/folder"
cat >"$scratch/save.play" <<'PLAY'
choose 12
menu mnuFileNew
type txtAnswer(0) "2"
click cmdOK
cell gridDisplayEdit 1 1 "0.9"
cell gridDisplayEdit 1 2 "0.1"
cell gridDisplayEdit 2 1 "0.3"
cell gridDisplayEdit 2 2 "0.7"
menu mnuFileSave
file "a.MRK"
answer OK
menu mnuFileExit
PLAY
(ulimit -f 0 && exec "$player" --folder "$scratch/folder" "$scratch/save.play") 2>&1 | cat >"$scratch/transcript" ||
    { cat "$scratch/transcript"; exit 1; }
grep -q '^msgbox critical OK "Error # 61" "Disk full"' "$scratch/transcript" ||
    { cat "$scratch/transcript"; echo "nothing is told"; exit 1; }
[ -z "$(ls -A "$scratch/folder")" ] || { echo "something is left"; exit 1; }

# The desktop program does not save by itself: the system tells what it ignores, by bits from signal 1 on.
[ -e /proc/self/status ] || exit 0
QT_QPA_PLATFORM=offscreen "$program" >/dev/null 2>&1 &
running=$!
ignores() {
    local signals
    signals=$(sed -n 's/^SigIgn:[[:space:]]*//p' "/proc/$running/status")
    (((0x$signals >> ($(kill -l XFSZ) - 1)) & 1))
}
end=$((SECONDS + 20))
until ignores; do
    [ "$SECONDS" -lt "$end" ] || { echo "the program does not ignore the signal"; exit 1; }
    read -rt 0.02 <> <(:) || true
done
