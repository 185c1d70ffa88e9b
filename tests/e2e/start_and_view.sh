#!/usr/bin/env bash
# The program on a virtual display: a figure of the command line is shown, zoomed by Ctrl and the
# wheel, dragged with the right button, and the program ends cleanly with its settings stored.
# Needs ORVALT (the program) and BUILD_DIR (screenshots go to its artefacts folder).
set -euo pipefail
. "$(dirname "$(realpath "$0")")/../support/display.sh"
require Xvfb xdotool import convert
: "${ORVALT:?}" "${BUILD_DIR:?}"
artefacts=$BUILD_DIR/artefacts
mkdir -p "$artefacts"

screenshot() {
    import -window root "$artefacts/$1.png"
}

# Extent of the blue box in a screenshot, as WIDTH HEIGHT X Y.
blue_box() {
    convert "$artefacts/$1.png" -fill black +opaque '#0000ff' -trim -format '%w %h %X %Y' info: |
        tr -d +
}

shows_blue_box() {
    screenshot "$1"
    read -r width height left top <<<"$(blue_box "$1")"
    [ "$width" -gt 20 ] && [ "$height" -gt 20 ]
}

# The blue box has left the size or the place that it had.
box_changed() {
    local before="$width $height $left $top"
    shows_blue_box "$1" && [ "$before" != "$width $height $left $top" ]
}

near() {
    local difference=$(($1 - $2))
    [ "${difference#-}" -le "$3" ]
}

# --- a display, a store that points elsewhere, a figure -------------------------

start_display
store=$work/config/Orvalt/Orvalt.conf
mkdir -p "$(dirname "$store")"
# The window is large enough for the panels and the figure.
printf '[General]\nlast%%20directory=/\nwindow%%20size=@Size(1000 700)\n' >"$store"

# A blue box without border (the rulers mark the pointer in red), 100 by 50 pixels at zoom 1, its corner at pixel 200, 100.
cat >"$work/plan.fig" <<'FIG'
#FIG 3.2
Landscape
Center
Metric
A4
100.00
Single
-2
1200 2
2 2 0 0 0 1 50 -1 20 0.000 0 0 -1 0 0 5
	 3000 1500 4500 1500 4500 2250 3000 2250 3000 1500
FIG

# --- start ----------------------------------------------------------------------

# The name is relative to where the program starts, whatever directory the store holds.
(cd "$work" && exec "$ORVALT" plan.fig) >"$work/out" 2>&1 &
editor=$!
wait_for "a window shows plan.fig in its title" window_named 'plan.fig'
wait_for "the figure is drawn" shows_blue_box start_and_view_1_start
near "$width" 100 2 && near "$height" 50 2 || fail "the box is $width by $height at zoom 1"

# --- zoom by Ctrl and the wheel -------------------------------------------------

xdotool mousemove $((left + 20)) $((top + 20)) keydown ctrl click 4 click 4 keyup ctrl
sleep 0.5
wait_for "Ctrl and the wheel zoom" box_changed start_and_view_2_zoomed
near "$width" 121 2 && near "$height" 61 2 || fail "the box is $width by $height at zoom 1.21"

# --- drag with the right button -------------------------------------------------

old_left=$left old_top=$top
xdotool mousemove 400 400 mousedown 3
xdotool mousemove 430 415
xdotool mousemove 460 440 mouseup 3
sleep 0.5
wait_for "the right button drags" box_changed start_and_view_3_dragged
near "$left" $((old_left + 60)) 0 && near "$top" $((old_top + 40)) 0 ||
    fail "dragging by 60, 40 moved the box from $old_left, $old_top to $left, $top"

# --- end by the menu ------------------------------------------------------------

eval "$(xdotool getwindowgeometry --shell "$window")"
quit_by_menu $((X + 36)) $((Y + 10)) start_and_view_4_menu
grep -qx "last%20directory=$work" "$store" || fail "last directory is not stored: $(cat "$store")"
grep -q '^window%20size=' "$store" || fail "the window size is not stored"
grep -q '^version=' "$store" || fail "the settings are not stored"
echo "Started, zoomed, dragged and ended; screenshots in $artefacts"
