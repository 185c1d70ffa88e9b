#!/usr/bin/env bash
# Takes the pictures of the user guide and the README from the program itself, on a display of its
# own:
#   guide_pictures.sh PROGRAM [FOLDER]
set -euo pipefail
top=$(dirname "$(dirname "$(realpath "$0")")")
ORVALT=$(realpath "$1")
out=$(realpath "${2:-$top/docs/images}")
. "$top/tests/support/display.sh"
. "$top/tests/support/driving.sh"
require Xvfb xdotool import convert

# open_example NAME: in a program of its own, whose window is called main.
open_example() {
    start_editor "$top/examples/$1.fig"
    wait_for "$1 opens" window_named "$1"
}

finish() {
    kill "$editor"
    wait "$editor" 2>/dev/null || true
    editor=""
}

# A crop of a window that has no frame here.
window_picture() {
    local X Y WIDTH HEIGHT
    eval "$(xdotool getwindowgeometry --shell "$window")"
    picture "$1" "${WIDTH}x$HEIGHT+$X+$Y"
}

start_display

# --- what the README shows ---------------------------------------------------------------

open_example flowchart
left 5.08 6.3 # on an outline
picture "$out/main-window.png"
finish

# --- opening -------------------------------------------------------------------------------

open_example plot
picture "$out/document-window.png" 1280x800+0+0
finish

# --- drawing -------------------------------------------------------------------------------

start_editor
tool_row_entry grid 3
tool_row_entry snap 1
tool box
number 1 2
left 3 2 8 5
left 3 8 8 11
tool polyline
number 1 1
choice 7 3
tool_row_entry constraint 3
left 8 3.5 13 3.5 13 9
move 10 9.3
picture "$out/drawing.png"
picture "$out/tools.png" 186x240+0+98
right 8 9.5
xdotool mousemove 28 80 click 1
picture "$out/constraints.png" 420x260+0+60
key Escape
tool spline
picture "$out/panel.png" 212x350+1068+98
tool box
property 8
key space
expect_dialog '^Palette$'
xdotool mousemove --window "$window" 321 47 click 1 mousemove --window "$window" 265 301 click 1
window_picture "$out/palette.png"
xdotool key Escape
tool text
property 1
key space
expect_dialog '^Fonts$'
window_picture "$out/fonts.png"
xdotool key Escape
finish
echo "Pictures in $out"
