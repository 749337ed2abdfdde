#!/usr/bin/env bash
# The command line of the player: what it takes, what it refuses, and how several scripts are played.
#
#   command_line.sh PLAYER
set -uo pipefail
player=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir given
failed=0

# gives STATUS ARGUMENT...: plays with standard input from in, and keeps what it wrote in out and err.
gives() {
    local should=$1
    shift
    "$player" "$@" <in >out 2>err
    local status=$?
    [ "$status" -eq "$should" ] && return
    echo "vantrel-play $*: exit status $status instead of $should"
    cat err
    failed=1
}

# holds FILE TEXT: the file has a line that is this text.
holds() {
    grep -qxF -e "$2" "$1" && return
    printf '%s has no line: %s\n' "$1" "$2"
    cat "$1"
    failed=1
}

is_empty() {
    [ ! -s "$1" ] || { echo "$1 is not empty:"; cat "$1"; failed=1; }
}

: >in
printf 'choose 12\nmenu mnuFileNew\n' >new.play
printf 'choose 12\nmenu mnuFileSave\n' >disabled.play
printf 'session\n' >session.play
printf 'shot "picture.png"\n' >shot.play
printf '# nothing\n\n' >empty.play

gives 2
gives 2 --folder given
gives 2 --frobnicate new.play
holds err "vantrel-play: there is no option --frobnicate"
gives 2 nowhere.play
holds err "vantrel-play: nowhere.play cannot be read"
gives 2 given
gives 2 --folder nowhere new.play
gives 2 new.play --folder
gives 2 new.play nowhere.play
is_empty out
gives 0 --help
is_empty err

gives 0 new.play
holds out '> choose 12'
is_empty err
gives 0 empty.play
is_empty out

# A script that cannot be done ends there; the next one has a session of its own.
gives 1 new.play disabled.play session.play
holds err "disabled.play:2: mnuFileSave is disabled"
holds out 'ProblemTitle ""'
[ "$(grep -c 'choose 12' out)" -eq 2 ] || { echo "a script was not played"; failed=1; }

# Standard input; folders.
cp disabled.play in
gives 1 -
holds err "-:2: mnuFileSave is disabled"
# Each line is played when it comes, before the next one is there.
mkfifo slow
"$player" - <slow >slow.out &
exec 3>slow
echo 'choose 12' >&3
for _ in $(seq 100); do
    grep -q '> choose 12' slow.out && break
    sleep 0.1
done
grep -q '> choose 12' slow.out || { echo "the first line waits for the second"; failed=1; }
echo 'menu mnuFileNew' >&3
for _ in $(seq 100); do
    grep -q 'modal frmUserInput' slow.out && break
    sleep 0.1
done
grep -q 'modal frmUserInput' slow.out || { echo "a line in a dialog waits for the next one"; failed=1; }
exec 3>&-
wait $! || { echo "a slow script ends with $?"; failed=1; }

# A file dialog neither waits for the toolkit's settings in the user's account nor writes them.
mkdir -p home/.config
touch home/.config/QtProject.conf.lock
printf '[FileDialog]\n' >home/.config/QtProject.conf
cp -r home before
printf 'choose 12\nmenu mnuFileOpen\nfile cancel\n' >dialog.play
HOME=$folder/home XDG_CONFIG_HOME=$folder/home/.config timeout 20 "$player" dialog.play >/dev/null ||
    { echo "the file dialog waits for somebody else's lock"; failed=1; }
diff -r before home || { echo "the user's settings have been written"; failed=1; }

cp new.play in
gives 0 session.play -
holds out '> menu mnuFileNew'
gives 0 --folder given shot.play
[ -s given/picture.png ] || { echo "there is no picture in the folder"; failed=1; }
gives 0 shot.play
[ -s picture.png ] || { echo "there is no picture in the current folder"; failed=1; }

exit $failed
