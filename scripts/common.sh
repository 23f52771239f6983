# Shared by the scripts of this folder; sourced, never run.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
deps="$root/.deps"
cd "$root"

say() { printf '\n== %s\n' "$*"; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# as_root COMMAND... : run as root, through sudo where this user is not root.
as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"
    elif command -v sudo >/dev/null; then sudo "$@"
    else die "not root and no sudo: cannot run '$*'"; fi
}

# A clone in another folder reuses what an earlier one compiled.
export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

# configure PRESET : runs CMake quietly; the log tells when it fails.
configure() {
    mkdir -p build
    cmake --preset "$1" > "build/configure-$1.log" 2>&1 \
        || { tail -n 40 "build/configure-$1.log" >&2; die "CMake failed (log: build/configure-$1.log)"; }
}
