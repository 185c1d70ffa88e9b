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

# open_example NAME: in a program of its own, whose window is called main. The status line does not
# tell where the examples lie, and no object shows its points.
open_example() {
    start_editor "$top/examples/$1.fig"
    wait_for "$1 opens" window_named "$1"
    tool select
    right 19 1
}

finish() {
    kill "$editor"
    wait "$editor" 2>/dev/null || true
    editor=""
}

# keep NAME PICTURE...: side by side, as a file of the guide. 255 colours show the program as it is
# in a third of the bytes.
keep() {
    convert "${@:2}" +append -strip +dither -colors 255 -define png:compression-level=9 \
        "PNG8:$out/$1.png"
}

# take NAME [CROP]
take() {
    picture "$work/taken.png" "${2:-}"
    keep "$1" "$work/taken.png"
}

# A crop of a window that has no frame here.
take_window() {
    local X Y WIDTH HEIGHT
    eval "$(xdotool getwindowgeometry --shell "$window")"
    take "$1" "${WIDTH}x$HEIGHT+$X+$Y"
}

# Of that height, from the top.
panel_crop() {
    echo "212x$1+1068+98"
}

start_display

# --- what the README shows ---------------------------------------------------------------

open_example flowchart
left 5.08 6.3 # on an outline
take main-window
finish

# --- opening -------------------------------------------------------------------------------

open_example plot
take document-window
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
take drawing
take tools 186x240+0+98
right 8 9.5
xdotool mousemove 28 80 click 1
take constraints 420x260+0+60
key Escape
tool spline
take panel "$(panel_crop 350)"
tool box
property 8
key space
expect_dialog '^Palette$'
xdotool mousemove --window "$window" 321 47 click 1 mousemove --window "$window" 265 301 click 1
take_window palette
xdotool key Escape
tool text
property 1
key space
expect_dialog '^Fonts$'
take_window fonts
xdotool key Escape
finish

# --- selecting, moving, aligning, scaling: places in figure units from here on ------------------

place_pixels=1/15

open_example flowchart
left 3000 2550
move 5400 4950
with_key shift xdotool click 1
take selecting 470x330+330+190
key Escape
drag 5800 4300 8600 5600
hold 6600 4500 7300 3200
take dragging 520x440+330+200
xdotool click 3 mouseup 1
click 75 10
click 102 238
take align 560x460+0+0
key Escape
key Escape
key Escape
drag 2200 1000 5100 5750
button create
tool scaleComp
hold 4915 5665 4100 4270
take scaling 520x460+330+180
xdotool mouseup 1
finish

# --- what is outside an open compound ------------------------------------------------------------

for mode in 10 11 12 3; do
    more_settings=compound%20edit%20view%20mode=$mode
    open_example plot
    left 9500 2000
    button open
    picture "$work/view_$mode.png" 300x250+650+225
    convert "$work/view_$mode.png" -bordercolor '#c0c0c0' -border 1 "$work/view_$mode.png"
    finish
done
more_settings=""
convert "$work/view_10.png" "$work/view_12.png" -append "$work/left.png"
convert "$work/view_11.png" "$work/view_3.png" -append "$work/right.png"
keep compound-views "$work/left.png" "$work/right.png"

# --- turning --------------------------------------------------------------------------------------

start_editor
tool ebr
number 1 2
left 4500 2700 4800 3600
tool rotateRight
number 0 30
number 1 11
move 4500 4500
with_key shift xdotool click 1
right 4500 1800
picture "$work/petals.png" 420x420+297+211
picture "$work/turns.png" "$(panel_crop 90)"
keep turning "$work/petals.png" "$work/turns.png"
finish

# --- points ----------------------------------------------------------------------------------------

start_editor
tool intSpline
number 1 2
left 1500 3600 3000 1800 4500 3600 6000 1800
right 7500 3600
tool select
right 900 900
hold 4500 3600 4500 4800
take points 520x310+267+181
xdotool mouseup 1
finish

# --- properties, arrowheads, tangents ----------------------------------------------------------------

start_editor
tool update
take update "$(panel_crop 350)"
tool polyline
property 7
key alt+Down
take arrows 212x440+1068+45
xdotool key Escape
finish

start_editor
tool cbr
number 1 2
left 3000 3000 4500 3000
tool tangent
number 0 5
left 3000 1500
tool normal
left 4060 1940
right 8000 1000
take tangents 300x270+297+171
finish
echo "Pictures in $out"
