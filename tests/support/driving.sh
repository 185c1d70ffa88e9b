# shellcheck shell=bash
# Sourced after display.sh: a user's hand in the main window of 1280 by 800 pixels. Places on the
# canvas are centimetres of the page at zoom 100 %, unless the script sets place_pixels. Nothing
# waits for a time: events of one window come in their order, and what opens another window is
# waited for.

# start_editor [FIGURE...]: with settings as a new user has them, but for the place of the window and
# the lines of more_settings. Sets editor, main (its window) and the place of the canvas.
start_editor() {
    local settings=$XDG_CONFIG_HOME/Orvalt
    mkdir -p "$settings"
    printf '[General]\nwindow%%20position=@Point(0 0)\nwindow%%20size=@Size(1280 800)\n%s\n' \
        "${more_settings:-}" >"$settings/Orvalt.conf"
    (cd "$work" && exec "$ORVALT" "$@") >"$work/out" 2>&1 &
    editor=$!
    wait_for "the program starts" window_named "Orvalt - "
    main=$window
    wait_for "the canvas is drawn" canvas_found
}

# Where a line of 300 white pixels begins; the argument crops the screen to one row or column.
white_run() {
    import -window root -crop "$1" +repage -depth 8 gray:- | od -An -v -tu1 -w1 |
        awk '{ run = $1 == 255 ? run + 1 : 0 } run == 300 { print NR - 300; exit }'
}

canvas_found() {
    canvas_x=$(white_run 1280x1+0+150)
    canvas_y=$(white_run 1x800+250+0)
    [ -n "$canvas_x" ] && [ -n "$canvas_y" ]
}

# Drawn means that two pictures in a row are the same. Leaves the last one in $work/now.png.
drawn() {
    import -window root "$work/before.png"
    sleep 0.2
    import -window root "$work/now.png"
    compare -metric AE "$work/before.png" "$work/now.png" null: >/dev/null 2>&1
}

# picture FILE [CROP]: of the screen, when nothing moves in it any more.
picture() {
    wait_for "the screen comes to rest" drawn
    convert "$work/now.png" ${2:+-crop "$2" +repage} "$1"
}

click() {
    xdotool mousemove "$1" "$2" click "${3:-1}"
}

# --- canvas -------------------------------------------------------------------------

place_pixels=80/2.54 # a centimetre; 1/15 makes the places figure units

# pixel X Y: sets px, py.
pixel() {
    read -r px py < <(awk "BEGIN { printf \"%.0f %.0f\\n\", $canvas_x + $1 * $place_pixels, \
        $canvas_y + $2 * $place_pixels }")
}

move() {
    pixel "$1" "$2"
    xdotool mousemove $px $py
}

# left X Y..., right X Y: clicks. The pointer is at the place before the button goes down.
left() {
    while [ $# -gt 0 ]; do
        move "$1" "$2"
        xdotool click 1
        shift 2
    done
}

right() {
    move "$1" "$2"
    xdotool click 3
}

# hold X Y X Y: drags with the left button, with a stop on the way, and does not let go.
hold() {
    move "$1" "$2"
    xdotool mousedown 1
    move "($1 + $3) / 2" "($2 + $4) / 2"
    move "$3" "$4"
}

drag() {
    hold "$@"
    xdotool mouseup 1
}

# with_key KEY COMMAND...: while the key is held.
with_key() {
    xdotool windowfocus "$main" keydown "$1"
    "${@:2}"
    xdotool keyup "$1"
}

# key KEY...: to the main window. No window manager gives the focus back when a dialog has gone.
key() {
    xdotool windowfocus "$main" key "$@"
}

# --- tools, tool row, panels ------------------------------------------------------------

# By name, row by row of the two panels.
drawing_tools=(polyline polygon box regular arc cbr cbd ebr ebd text
    spline closedSpline intSpline closedIntSpline picture)
manipulation_tools=(select copy delete update scaleComp arrow addPoint deletePoint tangent normal
    flipVert flipHoriz rotateLeft rotateRight)

# click_tool NAME TOP NAMES...: five in a row below the title of a panel.
click_tool() {
    local name=$1 top=$2 place=0 tool
    shift 2
    for tool in "$@"; do
        [ "$tool" != "$name" ] || click $((18 + 32 * (place % 5))) $((top + 31 * (place / 5)))
        place=$((place + 1))
    done
}

tool() {
    click_tool "$1" 136 "${drawing_tools[@]}"
    click_tool "$1" 258 "${manipulation_tools[@]}"
}

# button NAME: of the tool rows.
button() {
    local -A columns=([alignLeft]=252 [alignCenterH]=285 [alignRight]=318 [alignTop]=358
        [alignCenterV]=391 [alignBottom]=424 [alignCenterHV]=457
        [create]=506 [break]=539 [open]=572 [close]=605)
    click "${columns[$1]}" 80
}

# A menu is a window of its own, without a name of ours: it is told by their number.
visible_windows() {
    xdotool search --onlyvisible --class orvalt 2>/dev/null | wc -l
}

more_windows_than() {
    [ "$(visible_windows)" -gt "$1" ]
}

no_more_windows_than() {
    ! more_windows_than "$1"
}

# tool_row_entry NAME N: of the menu of a button of the tool row, counted from 1.
tool_row_entry() {
    local -A places=([constraint]=28 [grid]=170 [snap]=203)
    local before
    before=$(visible_windows)
    click "${places[$1]}" 80
    wait_for "the menu of $1 opens" more_windows_than "$before"
    key --repeat "$2" Down
    key Return
    wait_for "the menu of $1 closes" no_more_windows_than "$before"
}

# property N: the keys go to that control of the panel, in the order of the Tab key from 0. The
# first is a number, whose left end is clicked.
property() {
    click 1170 138
    [ "$1" = 0 ] || key --repeat "$1" Tab
}

# number N VALUE: typed into that control.
number() {
    property "$1"
    key ctrl+a
    xdotool type "$2"
    key Return
}

# choice N ENTRY: of that list, counted from 0.
choice() {
    property "$1"
    key Home
    [ "$2" = 0 ] || key --repeat "$2" Down
}

# --- dialogs -------------------------------------------------------------------------------

# text X Y WORDS: with the text tool.
text() {
    left "$1" "$2"
    expect_dialog '^Enter text$'
    xdotool type "$3"
    xdotool key Return
    wait_for "the text dialog closes" no_window_named '^Enter text$'
}

# save_as NAME: of a document that has no file yet.
save_as() {
    key ctrl+s
    expect_dialog '^Save As$'
    xdotool key ctrl+a type "$1"
    xdotool key Return
    wait_for "the title shows $(basename "$1")" window_named "$(basename "$1")"
    wait_for "$1 is written" test -s "$1"
}
