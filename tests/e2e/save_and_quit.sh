#!/usr/bin/env bash
# The program on a virtual display, by mouse and keys: saving under a name, back-ups, suffixes,
# refusing to overwrite, the recent files, a folder that vanishes, several documents side by side,
# and the end.
# Needs ORVALT (the program) and BUILD_DIR (screenshots go to its artefacts folder).
set -euo pipefail
. "$(dirname "$(realpath "$0")")/../support/display.sh"
require Xvfb xdotool import
: "${ORVALT:?}" "${BUILD_DIR:?}"
artefacts=$BUILD_DIR/artefacts
mkdir -p "$artefacts"

screenshot() {
    sleep 0.5
    import -window root "$artefacts/$1.png"
}

# menu LETTER: an entry of the File menu by its underlined letter.
menu() {
    xdotool mousemove 28 10 click 1
    sleep 0.4
    xdotool key "$1"
}

# save_as NAME: up to where the dialog closes or asks.
save_as() {
    menu a
    expect_dialog '^Save As$'
    xdotool key ctrl+a type --delay 20 "$1"
    xdotool key Return
}

# key KEY: to the main window. No window manager gives the focus back when a dialog has gone.
key() {
    xdotool windowfocus "$main" mousemove 600 300 key "$1"
    sleep 0.3
}

start() {
    (cd "$work" && exec "$ORVALT" "$@") >"$work/out" 2>&1 &
    editor=$!
    wait_for "the program starts" window_named "Orvalt"
    main=$window
    sleep 0.5
}

same() {
    cmp -s "$1" "$2"
}

# --- a display, a store and figures of its own ------------------------------------

start_display
store=$work/config/Orvalt/Orvalt.conf
figures=$work/figures
mkdir -p "$(dirname "$store")" "$figures"
printf '[General]\nwindow%%20position=@Point(0 0)\nwindow%%20size=@Size(1280 800)\nlast%%20directory=%s\n' \
    "$figures" >"$store"

# --- saving, back-up, suffix --------------------------------------------------------

start
save_as "$figures/plan.fig"
wait_for "plan.fig is written" test -s "$figures/plan.fig"
wait_for "the title shows the name" window_named 'plan\.fig'
screenshot save_and_quit_1_saved
head -n 1 "$figures/plan.fig" | grep -qx '#FIG 3.2' || fail "plan.fig is no figure"
[ ! -e "$figures/plan.fig.bak" ] || fail "a new file has left a back-up"
cp "$figures/plan.fig" "$work/first"
echo "# by another program" >>"$figures/plan.fig"
cp "$figures/plan.fig" "$work/changed"
key ctrl+s
wait_for "the second save replaces the file" same "$figures/plan.fig" "$work/first"
wait_for "the back-up holds what was there" same "$figures/plan.fig.bak" "$work/changed"

save_as "$figures/drawing."
wait_for "a point at the end gets the suffix" test -s "$figures/drawing.fig"
wait_for "the title follows" window_named 'drawing\.fig'

# --- refusing to overwrite, cancelling ------------------------------------------------

echo "precious" >"$figures/other.fig"
save_as "$figures/other.fig"
sleep 0.5
screenshot save_and_quit_2_overwrite
xdotool key alt+n # No
sleep 0.5
expect_dialog '^Save As$'
xdotool key Escape
wait_for "the dialog closes" no_window_named '^Save As$'
grep -qx precious "$figures/other.fig" || fail "other.fig was replaced against the answer No"
wait_for "the document keeps its name" window_named 'drawing\.fig'

# --- a folder that vanishes -----------------------------------------------------------

mv "$figures" "$work/away"
key ctrl+s
screenshot save_and_quit_3_failed
editor_ended && fail "the program ended when it could not save"
mv "$work/away" "$figures"
rm "$figures/drawing.fig"
key ctrl+s
wait_for "saving works again" test -s "$figures/drawing.fig"

# --- recent files, several documents ----------------------------------------------------

grep -q '^recentFileList=.*drawing\.fig, .*plan\.fig' "$store" ||
    fail "the recent list is not newest first: $(grep recent "$store")"
menu 2
wait_for "the second recent file opens" window_named 'plan\.fig'
key ctrl+n
wait_for "a new document opens" window_named 'document2\.fig'
screenshot save_and_quit_4_three
key alt+w
xdotool key t
screenshot save_and_quit_5_tiled
key alt+w
xdotool key c
screenshot save_and_quit_6_cascaded
quit_by_menu 28 10
grep -qx "last%20directory=$figures" "$store" || fail "last directory: $(grep last "$store")"

# --- the next run -------------------------------------------------------------------------

start
menu 1
wait_for "the first recent file is the one opened last" window_named 'plan\.fig'
key ctrl+F4
wait_for "Close closes it" no_window_named 'plan\.fig'
key ctrl+F4
wait_for "Close closes the last one" no_window_named 'document1\.fig'
screenshot save_and_quit_7_none
key ctrl+s # without a document
quit_by_menu 28 10
echo "Saved, refused, failed, reopened and ended; screenshots in $artefacts"
