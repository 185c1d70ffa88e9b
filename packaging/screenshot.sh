#!/usr/bin/env bash
# Starts the editor on a virtual display, waits until the figure is drawn, takes a screenshot:
#   screenshot.sh PROGRAM OUT.png [FIGURE]
set -euo pipefail
program=$1 out=$2 figure=${3:-}
mkdir -p "$(dirname "$out")"
work=$(mktemp -d)
trap 'kill "${editor:-}" "${server:-}" 2>/dev/null || true; rm -rf "$work"' EXIT

# The server picks a free display and tells its number.
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -noreset 3>"$work/display" 2>"$work/xvfb.log" &
server=$!
for _ in $(seq 100); do
    [ -s "$work/display" ] && break
    sleep 0.1
done
DISPLAY=:$(cat "$work/display")
export DISPLAY

# Settings of its own: the window fills the screen, and the user's stay as they are.
mkdir -p "$work/config/Orvalt"
printf '[General]\nwindow%%20position=@Point(0 0)\nwindow%%20size=@Size(1280 900)\n' \
    >"$work/config/Orvalt/Orvalt.conf"
XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=xcb \
    "$program" ${figure:+"$figure"} &
editor=$!
name=$(basename -- "${figure:-document1.fig}")
window=""
for _ in $(seq 300); do
    kill -0 "$editor" 2>/dev/null || { echo "The editor ended by itself." >&2; exit 1; }
    window=$(xdotool search --onlyvisible --name "$name" 2>/dev/null | head -n 1 || true)
    [ -n "$window" ] && break
    # Nobody is there to answer a question; its default is taken.
    question=$(xdotool search --onlyvisible --name '^Request$' 2>/dev/null | head -n 1 || true)
    [ -z "$question" ] || xdotool mousemove --window "$question" 20 20 key Return 2>/dev/null || true
    sleep 0.2
done
[ -n "$window" ] || echo "No window shows $name; see the screenshot." >&2

# Drawn means that two pictures in a row are the same.
import -window root "$work/now.png"
for _ in $(seq 40); do
    mv "$work/now.png" "$work/before.png"
    sleep 0.4
    import -window root "$work/now.png"
    compare -metric AE "$work/before.png" "$work/now.png" null: >/dev/null 2>&1 && break
done
mv "$work/now.png" "$out"
echo "Screenshot: $(realpath "$out")"
