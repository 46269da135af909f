#!/usr/bin/env bash
# start-check.sh PROGRAM FOLDER PICTURE COMMAND...: starts zevFIT by the command on the display that
# it is given and looks
#   that the main window and the greeting come up, of a process that runs PROGRAM,
#   that the greeting is painted, which takes the SVG plug-in; PICTURE is what the display shows,
#   that the program's own folder is FOLDER: a note that lies there is taken up,
#   that it ends when it is told to.
set -euo pipefail
program=$(readlink -f -- "$1")
folder=$2
picture=$3
shift 3
readonly orange='#f2933c' # of the greeting, and of nothing else that is no SVG picture
readonly seconds=60       # for each step; more is a hang

fail() {
  echo "$*" >&2
  exit 1
}

# What the display shows has pixels of the greeting's curve.
painted() {
  import -window root "$picture" &&
    [ "$(convert "$picture" -fill black +opaque "$orange" -format '%[fx:maxima > 0]' info:)" = 1 ]
}

window() {
  timeout "$seconds" xdotool search --sync --onlyvisible --name "$1" || fail "No window $1 came up"
}

# The program tells of a rescue before it once, and takes the note away.
note=$folder/rescue.txt
mkdir -p -- "$folder"
printf 'some file' >"$note"

unset WAYLAND_DISPLAY QT_QPA_PLATFORM
# What it prints comes to an end with the program, whoever started that.
exec {output}< <("$@" 2>&1)
main=$(window '^zevFIT$')
window '^About zevFIT$' >/dev/null
pid=$(xdotool getwindowpid "$main")
trap 'kill -KILL "$pid" 2>/dev/null || true' EXIT

running=$(readlink -- "/proc/$pid/exe")
[ "$running" = "$program" ] || fail "The window is that of $running, not of $program"
class=$(xprop -id "$main" WM_CLASS)
[[ $class == *'"zevFIT"' ]] || fail "The menu entry names another class than $class"
until painted; do
  [ "$SECONDS" -lt "$seconds" ] || fail "The greeting stays unpainted"
done
[ ! -e "$note" ] || fail "The program's folder is another than $folder"
kill "$pid"
timeout "$seconds" cat <&"$output" || fail "It does not end"
trap - EXIT
