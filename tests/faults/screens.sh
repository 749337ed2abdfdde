#!/usr/bin/env bash
# screens.sh PLAYER FAULTS: every call fails once while a problem is saved, a report saved as text and printed to a
# PDF file, over no file and over an old one, from the real screens: the file is the old one or the new one, whole, and
# the user is told. Then the program is killed at each call.
set -euo pipefail
player=$1 faults=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
root=$scratch/root
calls=18 # more than any of the three makes
mkdir "$root"

begin() {
    cat <<'PLAY'
choose 12
menu mnuFileNew
type txtAnswer(0) "2"
click cmdOK
cell gridDisplayEdit 1 1 "0.9"
cell gridDisplayEdit 1 2 "0.1"
cell gridDisplayEdit 2 1 "0.3"
cell gridDisplayEdit 2 2 "0.7"
PLAY
}

# operation KIND PATH [CALL]: what is done while the call fails; a message that comes up is closed by Enter, which
# else does nothing there. The printer dialog makes the first two calls itself: it opens the file to see whether that
# can be written, and stays when it cannot.
operation() {
    case $1 in
        save) echo "menu mnuFileSave" ;;
        text) echo "menu mnuSolutionPrinttoText" ;;
        print) echo "menu mnuSolutionPrinttoPrinter" ;;
    esac
    if [ "$1" = print ]; then echo "printer \"$2\""; else echo "file \"$2\""; fi
    if [ "$1 ${3:-}" = "print 1" ]; then
        printf '%s\n' "answer OK" "printer cancel"
        return
    fi
    [ ! -e "$2" ] || echo "answer Yes"
    echo "key Enter"
}

# file_of KIND: its name; experiment KIND OVER N FAULT: the folder, made, with the old file in it where there is one.
file_of() { case $1 in save) echo a.MRK ;; text) echo a.OUT ;; print) echo a.pdf ;; esac; }
experiment() {
    local folder=$root/$1.$2-$3-$4
    mkdir -p "$folder"
    [ "$2" = new ] || echo old >"$folder/$(file_of "$1")"
    echo "$folder"
}

# play SCRIPT: under faults. The status is the player's.
play() {
    (cd "$scratch" && FAULTS_UNDER=$root FAULTS_LOG=$scratch/log LD_PRELOAD=$faults \
        "$player" --folder "$scratch" "$1") >"$scratch/transcript" 2>"$scratch/errors"
}

# is_whole KIND FILE: a PDF file has its beginning and its end; the others are as an undisturbed session wrote them.
is_whole() {
    if [ "$1" = print ]; then
        [ "$(head -c 5 "$2")" = %PDF- ] && [ "$(tail -c 6 "$2")" = %%EOF ]
    else
        cmp -s "$2" "$scratch/good/$(file_of "$1")"
    fi
}

# holds KIND OVER FOLDER: the old file or the new one, and nothing else but what a kill may leave.
holds() {
    local file=$3/$(file_of "$1")
    if [ -e "$file" ]; then
        is_whole "$1" "$file" || [ "$2 $(head -c 4 "$file")" = "over old" ] || { echo "${3##*/}: torn"; return 1; }
    else
        [ "$2" = new ] || { echo "${3##*/}: gone"; return 1; }
    fi
}

mkdir "$scratch/good"
{
    begin
    operation save "$scratch/good/a.MRK"
    echo "menu mnuSolutionSolve"
    operation text "$scratch/good/a.OUT"
} >"$scratch/good.play"
play "$scratch/good.play" || { cat "$scratch/errors"; exit 1; }

# All faults in one session.
{
    begin
    for kind in save text print; do
        [ "$kind" != text ] || echo "menu mnuSolutionSolve"
        for over in new over; do
            for fault in EIO ENOSPC; do
                for ((call = 1; call <= calls; ++call)); do
                    folder=$(experiment $kind $over $call $fault)
                    echo "# ${folder##*/}"
                    operation $kind "$folder/$(file_of $kind)" $call
                done
            done
        done
    done
} >"$scratch/faults.play"
play "$scratch/faults.play" || { cat "$scratch/errors"; tail -20 "$scratch/transcript"; exit 1; }

failed=
told=$(grep -cE '^msgbox (critical OK "Error # |exclamation OK "Print" )' "$scratch/transcript")
happened=$(grep -cv '^print\..*-2-.* close' "$scratch/log") # where the dialog closes what it has not written
[ "$told" -eq "$happened" ] || { echo "$happened faults, $told messages"; failed=yes; }
for kind in save text print; do
    for over in new over; do
        for folder in "$root/$kind.$over"-*; do
            holds $kind $over "$folder" || failed=yes
            [ "$(find "$folder" -type f | wc -l)" -le 1 ] || { echo "${folder##*/}: something is left"; failed=yes; }
        done
        # The last of them came too late to hit anything: the whole operation has been tried.
        hits=$(grep -c "^$kind.$over-[0-9]*-EIO " "$scratch/log")
        { [ "$hits" -ge 8 ] && [ "$hits" -lt $calls ]; } || { echo "$kind $over: $hits of its calls failed"; failed=yes; }
    done
done

# Killed at each call of a save over an old file.
for ((call = 1; call <= calls; ++call)); do
    folder=$(experiment save over $call KILL)
    {
        begin
        operation save "$folder/a.MRK"
    } >"$scratch/kill.play"
    { play "$scratch/kill.play"; } 2>/dev/null && break
    holds save over "$folder" || failed=yes
done
[ "$call" -ge 8 ] && [ "$call" -le $calls ] || { echo "killed $call times"; failed=yes; }
[ -z "$failed" ]
