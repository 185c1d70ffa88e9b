#!/usr/bin/env bash
# What `cmake --install` and `cpack` deliver: every file in its place and accepted by the desktop's
# own checkers, a Debian package with the right control data, and a program that starts from the
# package, shows a figure and ends cleanly.
# Needs SOURCE_DIR and BUILD_DIR, a build of the program; nothing is written there but cmake's list
# of what it installed.
set -euo pipefail
. "$(dirname "$(realpath "$0")")/../support/display.sh"
require cmake cpack dpkg-deb dpkg-shlibdeps file Xvfb xdotool
: "${SOURCE_DIR:?}" "${BUILD_DIR:?}"
umask 022 # folders get it, as Debian's own tools expect

# check TOOL COMMAND...: a checker must be content; one that is absent is named and passed by.
check() {
    local tool=$1
    shift
    command -v "$tool" >/dev/null || { echo "$tool is missing: not run."; return; }
    "$tool" "$@" >"$work/remarks" 2>&1 || fail "$tool: $(cat "$work/remarks")"
}

# The value of a constant of the program's version record.
version_record() {
    grep -rhoP "constexpr char $1\[\] = \"\K[^\"]*" "$SOURCE_DIR/src" --include='*.h'
}
version=$(version_record ORVALT_MAJOR_VERSION).$(version_record ORVALT_MINOR_VERSION)
metainfo=share/metainfo/org.orvalt.orvalt.metainfo.xml

# --- the files, installed or unpacked ---------------------------------------------

# relative_files FOLDER: what lies in it, one name a line.
relative_files() {
    (cd "$1" && find . -type f -printf '%P\n' | LC_ALL=C sort)
}

expected_files() {
    echo bin/orvalt
    echo share/applications/orvalt.desktop
    echo "$metainfo"
    echo share/man/man1/orvalt.1
    echo share/doc/orvalt/user-guide.md
    echo share/doc/orvalt/file-format.md
    (cd "$SOURCE_DIR" && find docs/images -type f -printf 'share/doc/orvalt/images/%P\n' 2>/dev/null)
    (cd "$SOURCE_DIR" && find examples -name '*.fig' -printf 'share/orvalt/%p\n')
    (cd "$SOURCE_DIR" && find examples -name '*.png' -printf 'share/orvalt/%p\n')
    echo share/icons/hicolor/scalable/apps/orvalt.svg
    for size in 16 24 32 48 64 128 256; do
        echo share/icons/hicolor/${size}x$size/apps/orvalt.png
    done
}

# Exactly these files: no second MIME glob, and no licence while the owner has chosen none.
check_files() {
    diff <(expected_files | LC_ALL=C sort) <(relative_files "$1") >"$work/difference" ||
        fail "files in $1 (> is too many, < is missing): $(cat "$work/difference")"
    [ -x "$1/bin/orvalt" ] || fail "the program cannot be run"
}

DESTDIR=$work/staged cmake --install "$BUILD_DIR" --prefix /opt/orvalt >"$work/install.log"
installed=$work/staged/opt/orvalt
[ "$(ls "$work/staged")" = opt ] || fail "something went outside the prefix: $(ls "$work/staged")"
check_files "$installed"

# --- what the desktop's checkers say ----------------------------------------------

entry=$installed/share/applications/orvalt.desktop
check desktop-file-validate "$entry"
check appstreamcli validate --no-net --pedantic "$installed/$metainfo"
if command -v groff >/dev/null; then
    remarks=$(groff -z -man -Tutf8 -ww "$installed/share/man/man1/orvalt.1" 2>&1)
    [ -z "$remarks" ] || fail "groff: $remarks"
else
    echo "groff is missing: not run."
fi

# value KEY: of the desktop entry.
value() {
    sed -n "s/^$1=//p" "$entry"
}

globs=/usr/share/mime/globs2
if [ -f $globs ]; then
    types=$(awk -F: '$3 == "*.fig" { printf "%s;", $2 }' $globs)
    [ "$(value MimeType)" = "$types" ] ||
        fail "the entry lists $(value MimeType), the database knows *.fig as $types"
fi
[ "$(value Exec)" = "orvalt %f" ] || fail "the entry runs $(value Exec)"
grep -q '<launchable type="desktop-id">orvalt.desktop<' "$installed/$metainfo" ||
    fail "the AppStream data do not name the desktop entry"
released="version=\"$version\" date=\"$(version_record ORVALT_DATE)\""
grep -q "<release $released/>" "$installed/$metainfo" ||
    fail "the AppStream data do not know the release $released"
grep -q "\"Orvalt $version\"" "$installed/share/man/man1/orvalt.1" ||
    fail "the man page is not that of version $version"

# PNG files tell their width and height in bytes 16 to 23.
for icon in "$installed"/share/icons/hicolor/*x*/apps/orvalt.png; do
    folder=${icon%/apps/*}
    size=$(od -An -tu1 -j16 -N8 "$icon" | awk '{ print $3 * 256 + $4 "x" $7 * 256 + $8 }')
    [ "$size" = "${folder##*/}" ] || fail "the icon of ${folder##*/} is $size"
done

# --- the Debian package -----------------------------------------------------------

(cd "$BUILD_DIR" && cpack -B "$work/packages" >"$work/cpack.log" 2>&1) ||
    fail "cpack: $(cat "$work/cpack.log")"
architecture=$(dpkg --print-architecture)
package=$work/packages/orvalt_${version}_$architecture.deb
[ -f "$package" ] || fail "cpack made $(ls "$work/packages") instead of ${package##*/}"

field() {
    dpkg-deb -f "$package" "$1"
}
# field_has FIELD WORD...: each is one of the packages that the field lists.
field_has() {
    local name=$1 word
    shift
    for word in "$@"; do
        field "$name" | tr ',' '\n' | grep -qE "^ *$word( |$)" ||
            fail "$name lacks $word: $(field "$name")"
    done
}

[ "$(field Package)" = orvalt ] || fail "the package is called $(field Package)"
[ "$(field Version)" = "$version" ] || fail "the package has version $(field Version)"
[ "$(field Architecture)" = "$architecture" ] || fail "the package is for $(field Architecture)"
field_has Depends fig2dev ghostscript libqt5core5a libqt5widgets5 libc6
field_has Recommends fonts-urw-base35 texlive-latex-base evince
[[ "$(field Maintainer)" == *" <"*@*">" ]] || fail "no maintainer's address: $(field Maintainer)"

dpkg-deb -c "$package" >"$work/contents"
! awk '$2 != "root/root"' "$work/contents" | grep . || fail "these do not belong to root"
! awk '$1 !~ /^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x)$/' "$work/contents" | grep . ||
    fail "these have odd permissions"

dpkg-deb -x "$package" "$work/unpacked"
[ "$(ls "$work/unpacked")" = usr ] || fail "something lies outside /usr: $(ls "$work/unpacked")"
check_files "$work/unpacked/usr"

# --- the program of the package ---------------------------------------------------

start_display

cd "$work/unpacked/usr/share/orvalt/examples"
"$work/unpacked/usr/bin/orvalt" flowchart.fig >"$work/out" 2>&1 &
editor=$!
wait_for "a window shows flowchart.fig in its title" window_named 'flowchart\.fig'
# Desktops find the entry, and the icon in it, by the class of the window.
xdotool search --onlyvisible --class "^$(value StartupWMClass)\$" 2>/dev/null |
    grep -qx "$window" || fail "the window is not of the class $(value StartupWMClass)"

eval "$(xdotool getwindowgeometry --shell "$window")"
quit_by_menu $((X + 36)) $((Y + 10))
grep -q "^version=$version\$" "$work/config/Orvalt/Orvalt.conf" || fail "no settings are stored"
echo "Installed, packed as ${package##*/}, started from the package and ended."
