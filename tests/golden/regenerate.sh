#!/usr/bin/env bash
# Makes the expected canvases anew, or those of the named examples only. By hand and on purpose:
# look at each picture beside fig2dev's before it goes in, and say in the commit why it changed.
#
#   tests/golden/regenerate.sh [NAME...]
set -euo pipefail
here=$(dirname "$(realpath "$0")")
root=$here/../..
figprobe=${FIGPROBE:-$root/build/release/tests/figprobe}
cd "$root/examples"
names=("$@")
if [ ${#names[@]} = 0 ]; then
    # Pictures in a figure are not drawn yet.
    mapfile -t names < <(printf '%s\n' *.fig | sed 's/\.fig$//' | grep -vx pictures)
fi
for name in "${names[@]}"; do
    "$figprobe" render "$name.fig" "$here/$name.png"
done
