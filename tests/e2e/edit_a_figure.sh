#!/usr/bin/env bash
# A figure is edited by mouse and keys: links, a drag with a connector, a compound made, opened,
# changed inside, closed and scaled, turning, flipping, copies, points, properties, alignment, the
# clipboard. The saved text is what was done; undo of all gives the first bytes, redo the last.
# Needs ORVALT (the program) and BUILD_DIR (pictures go to its artefacts folder).
set -euo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/display.sh"
. "$here/../support/driving.sh"
place_pixels=1/15 # figure units
require Xvfb xdotool import convert compare
: "${ORVALT:?}" "${BUILD_DIR:?}"
artefacts=$BUILD_DIR/artefacts
mkdir -p "$artefacts"
figure=$work/figure.fig

shot() {
    picture "$artefacts/edit_a_figure_$1.png"
}

# save NAME: a copy of what the document says now.
save() {
    rm -f "$figure"
    key ctrl+s
    wait_for "the figure is saved as $1" test -s "$figure"
    cp "$figure" "$work/$1.fig"
}

# expect NAME: the saved objects are those of the standard input.
expect() {
    sed '1,/^1200 2$/d' "$work/$1.fig" >"$work/objects"
    diff - "$work/objects" >"$work/out" || fail "$1: not what was done: $(cat "$work/out")"
}

create_smart_links() {
    local before
    before=$(visible_windows)
    click 75 10
    wait_for "the menu Edit opens" more_windows_than "$before"
    click 148 188
    expect_dialog '^Create Smart Links'
    xdotool key alt+y
    wait_for "the question has gone" no_window_named '^Create Smart Links'
}

# Pens are two units wide, so that the corners of compounds, 15 outside, are whole pixels too.
cat >"$figure" <<'FIG'
#FIG 3.2
Portrait
Flush left
Metric
A4
100.00
Single
-2
1200 2
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	900 900 2700 900 2700 1800 900 1800 900 900
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	4500 900 6300 900 6300 1800 4500 1800 4500 900
2 1 0 2 0 7 50 -1 -1 0.000 0 0 -1 1 0 2
	1 1 1.00 120.00 240.00
	2700 1350 4500 1350
1 3 0 2 0 7 50 -1 -1 0.000 1 0.0000 1500 4200 600 600 1500 4200 2100 4200
2 1 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 3
	3300 3600 4500 3600 4500 4800
3 2 0 2 0 7 50 -1 -1 0.000 0 0 0 4
	6000 3600 6900 4500 7800 3600 8700 4500
	0.000 -1.000 -1.000 0.000
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	900 6000 2100 6000 2100 6900 900 6900 900 6000
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	2700 6000 3900 6000 3900 6900 2700 6900 2700 6000
FIG

start_display
start_editor "$(basename "$figure")"
wait_for "the figure opens" window_named '^Orvalt - .*figure\.fig'
save first

create_smart_links
steps=1

# The upper left box goes down by 900, and the connector's end with it.
hold 1800 900 1800 1800
shot 1_drag
xdotool mouseup 1
steps=$((steps + 1))

# The two lower boxes become one object; in it the second goes by 600, 300.
drag 600 5700 4200 7200
button create
button open
shot 2_open_compound
drag 3300 6900 3900 7200
button close
steps=$((steps + 2))

# Its corners are 885, 5985 and 4515, 7215: as wide again.
tool scaleComp
drag 4515 6600 8145 6600
steps=$((steps + 1))
shot 3_scaled

# By 90 degrees about 3900, 3600, then mirrored left to right there. The circle makes two copies
# about the right end of its diameter.
tool rotateRight
left 3900 3600
tool flipHoriz
left 3900 3600
tool rotateRight
number 1 2
right 2100 4200
steps=$((steps + 4))
shot 4_turned

tool select
drag 5100 4200 5400 4800
tool addPoint
drag 3900 3600 3600 3600
tool deletePoint
left 6900 4500
steps=$((steps + 3))
shot 5_points

tool select
left 1500 3600
number 1 4
steps=$((steps + 1))

# The right box to the height of the left one, the connector with it.
key Escape
left 5400 900
move 1800 1800
with_key shift xdotool click 1
button alignTop
steps=$((steps + 1))

# Both with their connector once more, the middle from 3600, 2250 to 3600, 8100.
drag 600 1500 6600 3000
key ctrl+c
key ctrl+v
move 3600 7500
left 3600 8100
steps=$((steps + 1))
shot 6_pasted

save last
# Worked out by hand from the places above. The clipboard's own copies have the ids 12 to 14.
expect last <<'FIG'
# METADATA <id>1</id>
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	 900 1800 2700 1800 2700 2700 900 2700 900 1800
# METADATA <id>2</id>
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	 4500 1800 6300 1800 6300 2700 4500 2700 4500 1800
# METADATA <id>3</id>
# METADATA <link srcPointIdx=0 targetObjId=1 targetLeftPointIdx=1/>
# METADATA <link srcPointIdx=1 targetObjId=2 targetLeftPointIdx=3/>
2 1 0 2 0 7 50 -1 -1 0.000 0 0 -1 1 0 2
	1 1 1.00 120.00 240.00
	 2700 2250 4500 2250
# METADATA <id>4</id>
1 3 0 4 0 7 50 -1 -1 0.000 1 0.0000 1500 4200 600 600 1500 4200 2100 4200
# METADATA <id>5</id>
2 1 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 4
	 3900 3000 3600 3600 3900 4200 5400 4800
# METADATA <id>6</id>
3 2 0 2 0 7 50 -1 -1 0.000 0 0 0 3
	 6000 3600 7800 3600 8700 4500
	 0.000 -1.000 0.000
# METADATA <id>9</id>
6 900 5985 8130 7215
# METADATA <id>7</id>
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	 915 6000 3315 6000 3315 6900 915 6900 915 6000
# METADATA <id>8</id>
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	 5715 6300 8115 6300 8115 7200 5715 7200 5715 6300
-6
# METADATA <id>10</id>
1 3 0 2 0 7 50 -1 -1 0.000 1 4.7124 2100 3600 600 600 2100 3600 2100 4200
# METADATA <id>11</id>
1 3 0 2 0 7 50 -1 -1 0.000 1 3.1416 2700 4200 600 600 2700 4200 2100 4200
# METADATA <id>15</id>
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	 900 7650 2700 7650 2700 8550 900 8550 900 7650
# METADATA <id>16</id>
2 2 0 2 0 7 50 -1 -1 0.000 0 0 -1 0 0 5
	 4500 7650 6300 7650 6300 8550 4500 8550 4500 7650
# METADATA <id>17</id>
# METADATA <link srcPointIdx=0 targetObjId=15 targetLeftPointIdx=1/>
# METADATA <link srcPointIdx=1 targetObjId=16 targetLeftPointIdx=3/>
2 1 0 2 0 7 50 -1 -1 0.000 0 0 -1 1 0 2
	1 1 1.00 120.00 240.00
	 2700 8100 4500 8100
FIG

key --repeat "$steps" ctrl+z
save undone
cmp "$work/first.fig" "$work/undone.fig" || fail "undo of all does not give the first bytes"
key --repeat "$steps" ctrl+y
save redone
cmp "$work/last.fig" "$work/redone.fig" || fail "redo of all does not give the last bytes"
shot 7_redone

quit_by_menu 28 10
echo "Edited, undone and redone; pictures in $artefacts"
