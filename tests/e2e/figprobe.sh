#!/usr/bin/env bash
# What scripts rely on: figprobe's exit status, its JSON, and its answer on negative coordinates.
set -euo pipefail
source_dir=${SOURCE_DIR:-$(dirname "$(realpath "$0")")/../..}
figprobe=${FIGPROBE:-${BUILD_DIR:-$source_dir/build/release}/tests/figprobe}
command -v python3 >/dev/null || { echo "python3 is needed"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "$1"
    exit 1
}

# expect_status STATUS ARGUMENTS...
expect_status() {
    local expected=$1 status=0
    shift
    "$figprobe" "$@" >"$work/out" 2>"$work/err" || status=$?
    [ "$status" = "$expected" ] || fail "figprobe $*: status $status, not $expected"
}

# evaluate EXPRESSION: a Python expression over the JSON j of the last call has to be true
evaluate() {
    python3 -c "import json, sys; j = json.load(open(sys.argv[1])); assert $1, '$1'" "$work/out"
}

cat >"$work/line.fig" <<'FIGURE'
#FIG 3.2
Portrait
Flush left
Metric
A4
100.00
Single
-2
1200 2
2 1 0 1 0 7 50 -1 -1 0.1 0 0 -1 0 0 2
	 -600 1200 1200 2400
FIGURE

expect_status 2
expect_status 2 info
expect_status 2 paint "$work/line.fig"
expect_status 2 info "$work/line.fig" --zoom nothing
expect_status 1 info "$work/absent.fig"
evaluate '"Reading objects" in j["messages"][0]'

expect_status 0 info "$work/line.fig"
evaluate '[p["x"] for p in j["objects"][0]["points"]] == [-600, 1200]'
evaluate 'j["objects"][0]["style_val"] == 0.10000000149011612' # single precision, exactly
evaluate 'len(j["boxes"]) == 1 and j["header"]["version"] == 3.2'
expect_status 0 info "$work/line.fig" --shift yes
evaluate 'min(p["x"] for p in j["objects"][0]["points"]) >= 0'

# The mapping: 1200 units are 80 pixels at zoom 1, 320 at zoom 2 and 160 pixels per inch.
expect_status 0 outline "$work/line.fig"
evaluate 'j["objects"][0]["points"] == [[-40, 80], [80, 160]]'
expect_status 0 outline "$work/line.fig" --zoom 2 --ppi 160 --origin -600,1200
evaluate 'j["objects"][0]["points"] == [[0, 0], [480, 320]]'

expect_status 0 render "$work/line.fig" "$work/canvas.png" --size 123x45
python3 - "$work/canvas.png" <<'CHECK' || fail "the canvas has another size"
import struct, sys
sys.exit(struct.unpack(">II", open(sys.argv[1], "rb").read(24)[16:]) != (123, 45))
CHECK
expect_status 1 render "$work/line.fig" "$work/no/such/folder.png"

# The searches: beside the middle of the line, off by (10, -15) at right angles, and at its start.
expect_status 0 hit "$work/line.fig" 310 1785 -610 1190
evaluate 'j["tolerance"] == 30 and [p["object"]["id"] for p in j["points"]] == [1, 1]'
evaluate 'j["points"][0]["point"] == [300, 1800] and j["points"][0]["pointSearch"] is None'
evaluate 'j["points"][0]["smartPoints"] == [[-600, 1200], [1200, 2400]]'
evaluate 'j["points"][1]["pointSearch"]["point"] == [-600, 1200]'
evaluate 'j["points"][1]["pointSearch"]["previous"] is None'
expect_status 0 hit "$work/line.fig" --zoom 4 <<<"310 1785"
evaluate 'j["tolerance"] == 8 and j["points"][0]["object"] is None'
expect_status 2 hit "$work/line.fig" 310
expect_status 2 hit "$work/line.fig" 310 wide
expect_status 0 hit "$work/line.fig" </dev/null
evaluate 'j["points"] == []'
