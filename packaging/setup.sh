# Sourced by ./run and ./test: installs the Debian packages that are missing.
# Needs root, or sudo, only when something is missing.

BUILD_PACKAGES="g++ cmake ninja-build ccache qtbase5-dev qtbase5-dev-tools qtdeclarative5-dev
    fig2dev ghostscript fonts-urw-base35 librsvg2-bin"
DISPLAY_PACKAGES="xvfb xdotool xauth imagemagick"
TEST_PACKAGES="clang libclang-rt-14-dev llvm python3 locales
    dpkg-dev file desktop-file-utils appstream groff-base"

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            printf '%s ' "$package"
    done
}

ensure_packages() {
    command -v dpkg-query >/dev/null || return 0 # not Debian: the user provides them
    local missing as_root=""
    missing=$(missing_packages "$@")
    [ -z "$missing" ] && return 0
    [ "$(id -u)" = 0 ] || as_root=sudo
    echo "Installing: $missing"
    export DEBIAN_FRONTEND=noninteractive
    # shellcheck disable=SC2086
    $as_root apt-get install -y --no-install-recommends $missing >/dev/null 2>&1 || {
        $as_root apt-get update -q >/dev/null &&
            $as_root apt-get install -y --no-install-recommends $missing
    }
}

# The compiler cache must not be defeated by the precompiled header.
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
export CCACHE_BASEDIR="$PWD"
