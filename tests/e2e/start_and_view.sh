#!/usr/bin/env bash
# The program on a virtual display: a figure of the command line is shown, zoomed by Ctrl and the
# wheel, dragged with the right button, and the program ends cleanly with its settings stored.
# Needs ORVALT (the program) and BUILD_DIR (screenshots go to its artefacts folder).
set -euo pipefail
for tool in Xvfb xdotool import convert; do
    command -v $tool >/dev/null || { echo "$tool is missing."; exit 77; }
done
: "${ORVALT:?}" "${BUILD_DIR:?}"
artefacts=$BUILD_DIR/artefacts
mkdir -p "$artefacts"
work=$(mktemp -d)
trap 'kill ${editor:-} ${server:-} 2>/dev/null || true; rm -rf "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# wait_for WHAT COMMAND...: until the command succeeds, ten seconds at most.
wait_for() {
    local what=$1
    shift
    for _ in $(seq 100); do
        "$@" && return
        sleep 0.1
    done
    fail "$what"
}

screenshot() {
    import -window root "$artefacts/$1.png"
}

# Extent of the blue box in a screenshot, as WIDTH HEIGHT X Y.
blue_box() {
    convert "$artefacts/$1.png" -fill black +opaque '#0000ff' -trim -format '%w %h %X %Y' info: |
        tr -d +
}

window_named() {
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1)
    [ -n "$window" ]
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

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
server=$!
wait_for "the display comes up" test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work
# No session bus: the test leaves the user's desktop alone. Whole stacks let a sanitizer tell the
# leaks of Qt's display plugin, which is unloaded by then, from ours.
export DBUS_SESSION_BUS_ADDRESS=disabled: ASAN_OPTIONS=fast_unwind_on_malloc=0
store=$work/config/Orvalt/Orvalt.conf
mkdir -p "$(dirname "$store")"
printf '[General]\nlast%%20directory=/\n' >"$store"

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
xdotool mousemove $((X + 36)) $((Y + 10)) click 1
sleep 0.5
screenshot start_and_view_4_menu
xdotool key Up Return
ended() {
    ! kill -0 "$editor" 2>/dev/null
}
wait_for "Exit ends the program" ended
status=0
wait "$editor" || status=$?
editor=""
[ $status = 0 ] || fail "exit status $status: $(cat "$work/out")"
grep -qx "last%20directory=$work" "$store" || fail "last directory is not stored: $(cat "$store")"
grep -q '^window%20size=' "$store" || fail "the window size is not stored"
grep -q '^version=' "$store" || fail "the settings are not stored"
echo "Started, zoomed, dragged and ended; screenshots in $artefacts"
