#!/usr/bin/env bash
# Three whole sessions with real keys and clicks on a display of its own, with a window manager: what they save must
# be what the session player saves off-screen. Takes the release build, or the folder of other programs.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
programs=$(realpath "${1:-build/release/bin}")
need_packages "${DISPLAY_PACKAGES[@]}"

scratch=$(mktemp -d)
mkdir "$scratch/home" "$scratch/real" "$scratch/played"
mkdir -m 700 "$scratch/runtime"
started=()
finish() {
    [ "${#started[@]}" -eq 0 ] || kill "${started[@]}" 2>/dev/null || true
    wait
    rm -rf "$scratch"
}
trap finish EXIT

# until_true WHY COMMAND...: tries the command for ten seconds.
until_true() {
    local why=$1 end=$((SECONDS + 10))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || { echo "waited in vain: $why"; return 1; }
        read -rt 0.02 <> <(:) || true
    done
}

Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/number" 2>"$scratch/xvfb.log" &
started+=($!)
until_true "the display" test -s "$scratch/number"
DISPLAY=:$(cat "$scratch/number")
export DISPLAY
openbox >"$scratch/openbox.log" 2>&1 &
started+=($!)
until_true "the window manager" xdotool get_desktop

# ---- what a user does ----

is_active() { [[ "$(xdotool getactivewindow getwindowname)" == "$1" ]]; }
has_window() { until_true "the window '$1'" is_active "$1"; }
keys() { xdotool key --delay 5 "$@"; }
text() { xdotool type --delay 5 "$1"; }

# click TIMES X Y: from the middle of the display, where the windows stand.
click() { xdotool mousemove $((640 + $2)) $((512 + $3)) click --repeat "$1" --delay 30 1; }

# choose_file TITLE NAME: in the dialog of this title.
choose_file() {
    has_window "$1"
    text "$scratch/real/$2"
    keys Return
    has_window "Vantrel Version 6.0"
}

start() {
    (cd "$scratch/real" && exec env -u QT_QPA_PLATFORM QT_QPA_PLATFORM=xcb HOME="$scratch/home" \
        XDG_RUNTIME_DIR="$scratch/runtime" "$programs/vantrel") >"$scratch/vantrel.log" 2>&1 &
    program=$!
    started+=("$program")
    has_window Vantrel
    keys Return # the notice
    has_window "Vantrel Version 6.0"
}

has_ended() { ! kill -0 "$program"; }

# leave NAME: by the menu, with the status of a program that has done well.
leave() {
    keys alt+f x
    until_true "the end of the program" has_ended
    wait "$program" || { echo "$1: the program ended with $?"; cat "$scratch/vantrel.log"; exit 1; }
    echo "$1: done"
}

# For who wonders what happened.
trap 'import -window root build/display.png 2>/dev/null || true' ERR
set -E

# The same session, off-screen, from a script.
play() {
    "$programs/vantrel-play" --folder "$scratch/played" - >"$scratch/transcript" || { cat "$scratch/transcript"; exit 1; }
}

# ---- transportation, by keys alone ----

start
keys Down Return
keys ctrl+n
has_window " Origins and Destinations"
text 2
keys Tab
text 2
keys Return
has_window "Vantrel Version 6.0"
for entry in 4.5 3 40 2 6.25 25 30 35; do
    text "$entry"
    keys Tab
done
keys F5
has_window " Select Optimization Criteria"
keys space Return # the first criterion
has_window "Vantrel Version 6.0"
keys alt+s a
choose_file "Print Current Problem to TEXT File" keys.OUT
keys ctrl+s
choose_file "Save the Current Problem" keys.TRN
leave "transportation by keys"
play <<'PLAY'
choose 2
menu mnuFileNew
type txtAnswer(0) "2"
type txtAnswer(1) "2"
click cmdOK
cell gridDisplayEdit 1 1 "4.5"
cell gridDisplayEdit 1 2 "3"
cell gridDisplayEdit 1 3 "40"
cell gridDisplayEdit 2 1 "2"
cell gridDisplayEdit 2 2 "6.25"
cell gridDisplayEdit 2 3 "25"
cell gridDisplayEdit 3 1 "30"
cell gridDisplayEdit 3 2 "35"
menu mnuSolutionSolve
click optMaximize
click cmdOK
menu mnuSolutionPrinttoText
file "keys.OUT"
menu mnuFileSave
file "keys.TRN"
PLAY

# ---- Markov processes, by clicks ----

file_menu=(-530 -345)
solution_menu=(-443 -345)
cp Problems/Newspapers.MRK "$scratch/real/"
cp Problems/Newspapers.MRK "$scratch/played/"
start
click 2 158 35 # 12. Markov Processes
click 1 "${file_menu[@]}"
click 1 -500 -302 # Open...
choose_file "Select a Previously Saved Problem" Newspapers.MRK
click 1 -420 -230 # a cell
text 0.86
click 1 -360 -230 # its neighbour
text 0.09
click 1 "${solution_menu[@]}"
click 1 -425 -324 # Solve
click 1 "${solution_menu[@]}"
click 1 -385 -278 # Save As Text File
choose_file "Print Current Problem to TEXT File" clicks.OUT
click 1 "${file_menu[@]}"
click 1 -505 -278 # Save Problem...
choose_file "Save the Current Problem" clicks.MRK
leave "Markov processes by clicks"
play <<'PLAY'
choose 12
menu mnuFileOpen
file "Newspapers.MRK"
cell gridDisplayEdit 1 1 "0.86"
cell gridDisplayEdit 1 2 "0.09"
menu mnuSolutionSolve
menu mnuSolutionPrinttoText
file "clicks.OUT"
menu mnuFileSave
file "clicks.MRK"
PLAY

# ---- inventory, a form by keys ----

start
keys Down Down Down Down Down Down Down Return
keys ctrl+n
has_window " Inventory Models Available"
keys Down Return
has_window " Economic Order Quantity"
for entry in 104000 32 "" 25 8 ""; do
    text "$entry"
    keys Tab
done
keys space Tab
text 2
keys Return # Solve
has_window "Vantrel Version 6.0"
keys alt+s a
choose_file "Print Current Problem to TEXT File" form.OUT
leave "inventory by a form"
play <<'PLAY'
choose 8
menu mnuFileNew
pick lstModelSelection "Economic Order Quantity"
click cmdOK
type txtEOQ(0) "104000"
type txtEOQ(1) "32"
type txtFrame1 "25"
type txtframe2 "8"
click chkreorderpoint
type txtleadtime "2"
click cmdSolve
menu mnuSolutionPrinttoText
file "form.OUT"
PLAY

diff -r "$scratch/played" "$scratch/real"
[ "$(find "$scratch/real" -type f | wc -l)" -eq 6 ]
strays=$(find "$scratch/home" "$scratch/runtime" -type f ! -path '*/openbox/*')
[ -z "$strays" ] || { echo "written though nobody asked: $strays"; exit 1; }
