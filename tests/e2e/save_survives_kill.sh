#!/usr/bin/env bash
# Saving a large figure, killed at any moment, leaves the old or the new text whole under its name.
# Needs FIGPROBE. ROUNDS and SEED choose how often and when.
set -euo pipefail
: "${FIGPROBE:?}"
rounds=${ROUNDS:-200}
RANDOM=${SEED:-4711}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# figure COUNT: so many boxes, as other programs write them.
figure() {
    printf '#FIG 3.2\nPortrait\nCenter\nMetric\nA4\n100.00\nSingle\n-2\n1200 2\n'
    awk -v count="$1" 'BEGIN {
        for (i = 0; i < count; ++i) {
            x = i % 9000; y = i % 7777
            print "2 2 0 1 0 7 50 -1 -1 0.000 0 0 -1 0 0 5"
            print "\t", x, y, x + 90, y, x + 90, y + 90, x, y + 90, x, y
        }
    }'
}

milliseconds() {
    echo $(($(date +%s%N) / 1000000))
}

figure 60000 >"$work/new.fig"
figure 50000 >"$work/old.fig"
target=$work/folder/figure.fig
mkdir "$work/folder"
"$FIGPROBE" save "$work/old.fig" "$work/expected_old" >/dev/null
begin=$(milliseconds)
"$FIGPROBE" save "$work/new.fig" "$work/expected_new" >/dev/null
duration=$(($(milliseconds) - begin))

old=0 new=0 aside=0
for round in $(seq "$rounds"); do
    # A file of its own each time, as saving the last time has left it.
    cp "$work/expected_old" "$target"
    # Mostly after the figure has been read.
    delay=$((duration * (30 + RANDOM % 80) / 100))
    "$FIGPROBE" save "$work/new.fig" "$target" >/dev/null 2>&1 &
    saver=$!
    sleep "$(printf '%d.%03d' $((delay / 1000)) $((delay % 1000)))"
    kill -9 "$saver" 2>/dev/null || true
    wait "$saver" 2>/dev/null || true
    if cmp -s "$target" "$work/expected_old"; then
        old=$((old + 1))
    elif cmp -s "$target" "$work/expected_new"; then
        new=$((new + 1))
    else
        fail "round $round, killed after $delay of $duration ms: $(wc -c <"$target") bytes that" \
            "are neither the old nor the new figure"
    fi
    aside=$((aside + $(find "$work/folder" -type f | wc -l) - 1))
    find "$work/folder" -type f -delete
done
# If every round ended the same way, none was killed while it saved.
[ "$old" -gt 0 ] && [ "$new" -gt 0 ] || fail "old $old times, new $new times: badly timed"
echo "$rounds rounds: the old figure stood $old times, the new one $new times;" \
    "$aside files were left aside"
