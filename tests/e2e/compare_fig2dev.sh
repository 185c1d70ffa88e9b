#!/usr/bin/env bash
# A second opinion on what is drawn: ink of the engine and of fig2dev within two pixels, on the
# examples and on every fourth figure of $ORVALT_FIGURES. By hand: compare_fig2dev.sh --all
# [options of compare_fig2dev.py] takes all of them.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
source_dir=${SOURCE_DIR:-$here/../..}
build_dir=${BUILD_DIR:-$source_dir/build/release}
figprobe=${FIGPROBE:-$build_dir/tests/figprobe}
inkdiff=${INKDIFF:-$build_dir/tests/inkdiff}
command -v fig2dev >/dev/null && command -v gs >/dev/null && command -v python3 >/dev/null || {
    echo "fig2dev, gs and python3 are needed"
    exit 77
}

step=4
if [ "${1:-}" = --all ]; then
    step=1
    shift
fi
figures=("$source_dir"/examples/*.fig)
if [ -d "${ORVALT_FIGURES:-}" ]; then
    mapfile -t real < <(find "$ORVALT_FIGURES" -name '*.fig' | sort | awk -v n="$step" 'NR % n == 0')
    figures+=("${real[@]}")
fi
exec python3 "$here/compare_fig2dev.py" --figprobe "$figprobe" --inkdiff "$inkdiff" \
    --known "$here/compare_fig2dev.known" "$@" "${figures[@]}"
