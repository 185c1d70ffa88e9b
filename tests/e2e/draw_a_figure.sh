#!/usr/bin/env bash
# A new user draws a flow chart and a plotted curve by mouse and keys: tools, panels, palette,
# fonts, texts, grid, snapping, constraints, undo and redo. What was saved is what was clicked, and
# fig2dev can read it.
# Needs ORVALT and FIGPROBE (the programs) and BUILD_DIR (pictures go to its artefacts folder).
set -euo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/display.sh"
. "$here/../support/driving.sh"
require Xvfb xdotool import convert fig2dev gs python3
: "${ORVALT:?}" "${FIGPROBE:?}" "${BUILD_DIR:?}"
artefacts=$BUILD_DIR/artefacts
mkdir -p "$artefacts"

shot() {
    picture "$artefacts/draw_a_figure_$1.png"
}

# check NAME: the saved figure against the list of what was drawn, and by fig2dev.
check() {
    "$FIGPROBE" info "$work/$1.fig" >"$work/$1.json" 2>/dev/null
    python3 "$here/draw_a_figure.py" "$1" "$work/$1.json" || fail "$1.fig is not what was drawn"
    fig2dev -L png "$work/$1.fig" "$artefacts/draw_a_figure_$1_fig2dev.png" 2>"$work/out" ||
        fail "fig2dev refuses $1.fig"
    convert "$artefacts/draw_a_figure_$1_fig2dev.png" -format '%[fx:minima < 0.1 && mean < 0.995]' \
        info: | grep -qx 1 || fail "fig2dev shows nothing of $1.fig"
}

# The palette has no title bar here: a swatch is so many pixels from its corner.
swatch() {
    xdotool mousemove --window "$window" "$1" "$2" click 1
}

pen() { swatch $((27 + 24 * ($1 % 8))) $((47 + 24 * ($1 / 8))); }
fill() { swatch $((249 + 24 * ($1 % 8))) $((47 + 24 * ($1 / 8))); }
shade() { swatch $((25 + 20 * ($1 % 21))) $((279 + 22 * ($1 / 21))); }
no_fill() { swatch 404 441; }

# open_palette N: by that control of the panel.
open_palette() {
    property "$1"
    key space
    expect_dialog '^Palette$'
}

close_palette() {
    xdotool key Escape
    wait_for "the palette closes" no_window_named '^Palette$'
}

start_display
start_editor

# --- flow chart -----------------------------------------------------------------------

# The controls of the panels that are used, in the order of the Tab key.
depth=0 width=1 style=2 corners=6 forward=7
box_colors=8 polygon_colors=6
font=1 align=4

tool_row_entry grid 3 # medium: a centimetre
tool_row_entry snap 1 # to the grid

tool box
number $width 2
open_palette $box_colors
fill 6 # yellow
shade 30 # half white
shot 1_palette
close_palette
left 6.1 4.9 9.9 7.1
choice $corners 0
left 6.1 15.1 9.9 16.9
tool box
choice $corners 1
left 6.2 0.9 9.8 3.1
left 14 14 16 16
key ctrl+z

tool polygon
number $width 3
open_palette $polygon_colors
no_fill
fill 3 # cyan; the style stays as it is
shade 34
pen 1 # blue
close_palette
left 8 9 10 11 8 13
right 6 11
shot 2_shapes

tool polyline
number $width 1
open_palette 8
pen 0
no_fill
close_palette
choice $forward 3
left 8 3
right 8 5
left 8 7
right 8 9
left 8 13
right 8 15
tool polyline
choice $style 1
tool_row_entry constraint 3 # manhattan
left 10 11 13 11.3 13.2 6
move 11 6.4
shot 3_rubber_band
right 10 6.3
tool_row_entry constraint 1

tool text
number $depth 40
property $font
key space
expect_dialog '^Fonts$'
shot 4_fonts
xdotool mousemove --window "$window" 400 233 click 1 # Helvetica
wait_for "a font is chosen" no_window_named '^Fonts$'
choice $align 1
text 8 2 "Start"
text 8 6 "Read a value"
text 8 11 "More?"
text 8 16 "Plot"
text 11 10 "yes"
text 9 14 "no"

# Taken back, and brought back.
tool cbr
left 18 5 20 5
key ctrl+z
key ctrl+z
key ctrl+y
key ctrl+z
key ctrl+y
save_as "$work/flowchart.fig"
shot 5_flowchart
check flowchart

# --- plotted curve ----------------------------------------------------------------------

key ctrl+n
wait_for "a new document opens" window_named 'document2\.fig'
tool_row_entry grid 2 # small: half a centimetre

tool polyline
choice $style 0
choice $forward 2
number $depth 50
tool_row_entry constraint 3
left 3 14
right 18 14.2
left 3 14
right 3.1 2
tool_row_entry constraint 1
tool polyline
choice $forward 0
for x in 6 9 12 15; do
    left $x 14
    right $x 14.5
done
for y in 11 8 5; do
    left 2.5 $y
    right 3 $y
done

tool intSpline
number $width 2
open_palette 7
pen 4 # red
close_palette
left 3 14 6 11.5 9 7.5 12 5.5 15 5
right 17 4.5
key ctrl+z
shot 6_curve_undone
key ctrl+y

tool text
open_palette 5
pen 0
close_palette
choice $align 1
number 2 10
for x in 6 9 12 15; do
    text $x 15.5 "$(((x - 3) / 3))"
done
tool text
choice $align 2
for y in 11 8 5; do
    text 2 $y "$(((14 - y) / 3 * 10))"
done
tool text
number 2 14
choice $align 0
text 16 16.5 "time in s"
tool text
number 3 90
text 1 10 "voltage in V"
save_as "$work/plot.fig"
shot 7_plot
check plot

quit_by_menu 28 10
echo "Drawn, undone, saved and read by others; pictures in $artefacts"
