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

# count_instructions BEGINNING OUT : instructions per stereo sample of the workloads (kestrel-speed) whose name begins so,
# as lines of name, tab and figure. Exact, and the same on an idle and on a busy machine.
count_instructions() {
    local profiles
    profiles=$(mktemp -d)
    valgrind --tool=callgrind --callgrind-out-file="$profiles/profile" \
        build/release/benchmarks/kestrel-speed count "$1" > "$profiles/log" 2>&1 \
        || { tail -n 20 "$profiles/log" >&2; rm -rf "$profiles"; die "kestrel-speed could not be run under callgrind"; }
    # A profile for each workload, labelled "NAME samples NUMBER".
    find "$profiles" -name 'profile.*' -print0 | sort -z -V | xargs -0 -r awk '
        sub(/^desc: Trigger: Client Request: /, "") { split($0, label, " samples ") }
        /^totals: / && label[2] { printf "%s\t%.1f\n", label[1], $2 / label[2]; delete label }' > "$2"
    rm -rf "$profiles"
    [ -s "$2" ] || die "no workload begins with '$1'"
}
