# Sourced by scripts that drive the whole program: a temporary folder, a virtual display, waiting.
# Sets work (the folder, gone at the end); the caller puts the program's process id in editor.

# require TOOL...: the test is skipped when one is missing.
require() {
    local tool
    for tool in "$@"; do
        command -v "$tool" >/dev/null || { echo "$tool is missing."; exit 77; }
    done
}

work=$(mktemp -d)
editor="" server=""
# The next server may take this one's number only when it has gone for good.
trap 'kill $editor $server 2>/dev/null || true; wait; rm -rf "$work"' EXIT

fail() {
    [ -z "$server" ] || import -window root "${artefacts:-$work}/failure.png" 2>/dev/null || true
    echo "FAILED: $*" >&2
    tail -n 5 "$work/out" "$work/xvfb.log" >&2 2>/dev/null || true
    exit 1
}

# wait_for WHAT COMMAND...: until the command succeeds, thirty seconds at most.
wait_for() {
    local what=$1
    shift
    for _ in $(seq 300); do
        "$@" && return
        sleep 0.1
    done
    fail "$what"
}

# window_named PATTERN: sets window to the first visible one of that title.
window_named() {
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1)
    [ -n "$window" ]
}

no_window_named() {
    ! window_named "$1"
}

takes_keys() {
    xdotool windowfocus "$window" mousemove --window "$window" 20 20 2>/dev/null
    [ "$(xdotool getwindowfocus 2>/dev/null)" = "$window" ]
}

# expect_dialog TITLE: waits for it; the keys go there.
expect_dialog() {
    wait_for "the dialog $1 comes up" window_named "$1"
    wait_for "the dialog $1 takes keys" takes_keys
}

# A server that resets when its last client has gone refuses whoever comes meanwhile: none does.
start_server() {
    : >"$work/display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset \
        3>"$work/display" 2>"$work/xvfb.log" &
    server=$!
    wait_for "the display comes up" test -s "$work/display"
    DISPLAY=:$(cat "$work/display")
    export DISPLAY
}

# start_display: a server of its own, settings and data of their own. A server that is just going
# down can take the socket of a new one under its number away with it; then another is started.
start_display() {
    start_server
    for _ in 1 2 3; do
        sleep 0.3
        xdotool getdisplaygeometry >/dev/null 2>&1 && break
        kill "$server" && wait "$server" || true
        start_server
    done
    export QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
    export XDG_RUNTIME_DIR=$work
    # No session bus: the test leaves the user's desktop alone. Whole stacks let a sanitizer tell
    # the leaks of Qt's display plugin, which is unloaded by then, from ours.
    export DBUS_SESSION_BUS_ADDRESS=disabled: ASAN_OPTIONS=fast_unwind_on_malloc=0
}

editor_ended() {
    ! kill -0 "$editor" 2>/dev/null
}

# quit_by_menu X Y: Exit is the last entry of the File menu, whose title is at that place.
quit_by_menu() {
    xdotool mousemove "$1" "$2" click 1
    sleep 0.5
    [ -z "${3:-}" ] || screenshot "$3"
    xdotool key Up Return
    wait_for "Exit ends the program" editor_ended
    local status=0
    wait "$editor" || status=$?
    editor=""
    [ $status = 0 ] || fail "exit status $status: $(cat "$work/out")"
}
