# Shared by all scripts; sourced with their arguments, never run.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
deps="$root/.deps"
script=$(realpath -- "$0")
cd "$root"

say() { printf '\n== %s\n' "$*"; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# How a script is used is told by the comment at its head, which begins with its name and arguments.
usage() { sed -n '2,/^[^#]/ { s/^# \{0,1\}//; t show; d; :show; 2s/^/usage: /; p }' "$script"; }
misused() { usage >&2; exit 2; }
case "${1:-}" in
    -h | --help) usage; exit 0 ;;
esac

# What is in order, and the first thing that is not.
passed=0
ok() { printf '  %-34s %s\n' "$1" "$2"; passed=$((passed + 1)); }
fail() { printf '  %-34s %s\n' "$1" "FAILED: $2"; exit 1; }

# as_root COMMAND... : run as root, through sudo where this user is not root.
as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"
    elif command -v sudo >/dev/null; then sudo "$@"
    else die "not root and no sudo: cannot run '$*'"; fi
}

# missing_packages PACKAGE... : those Debian packages that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

# install_packages PACKAGE... : installs those Debian packages that are not there yet.
install_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0

    say "installing ${missing[*]}"
    local hint=
    as_root apt-get -qq -o APT::Update::Error-Mode=any update > "$deps/apt.log" 2>&1 \
        || hint="; nor could it read every package index: is the package mirror reachable?"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq install -y --no-install-recommends "${missing[@]}" >> "$deps/apt.log" 2>&1 \
        || { tail -n 20 "$deps/apt.log" >&2; die "apt-get could not install ${missing[*]} (log: $deps/apt.log)$hint"; }
}

# The mirror that this machine uses for Debian itself.
debian_mirror() {
    apt-get indextargets --format '$(SITE) $(COMPONENT)' 'Created-By: Packages' 2>/dev/null \
        | awk '$2 == "main" && $1 !~ /security/ { print $1; exit }'
}

# has_hash SHA256 FILE : whether the file is there and is this one.
has_hash() { echo "$1  $2" | sha256sum --check --status 2>/dev/null; }

# fetch_debian SUITE SHA256 FILE ARGUMENT... : sees to it that .deps/download holds this file, which 'apt-get ARGUMENT...'
# (download, or source) brings from that suite of Debian. The list, index and cache are private: this machine's own package
# set stays as it is. apt checks the signatures.
declare -A fresh_index
fetch_debian() {
    local suite=$1 sha256=$2 file="$deps/download/$3" type=deb mirror
    shift 3
    ! has_hash "$sha256" "$file" || return 0

    [ "$1" = download ] || type=deb-src
    local dir="$deps/apt/$suite-$type"
    local private=(-qq -o "Dir::Etc::sourcelist=$dir/sources.list" -o Dir::Etc::sourceparts=/dev/null
                   -o "Dir::State::Lists=$dir/lists" -o "Dir::Cache=$dir/cache" -o APT::Sandbox::User=root)
    mkdir -p "$deps/download" "$dir/lists/partial" "$dir/cache/archives/partial"

    if [ -z "${fresh_index[$dir]:-}" ]; then
        mirror=$(debian_mirror)
        [ -n "$mirror" ] || die "no Debian mirror in this machine's apt configuration; cannot fetch ${file##*/}"
        echo "$type [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror $suite main" > "$dir/sources.list"
        apt-get "${private[@]}" -o APT::Update::Error-Mode=any update > "$dir/log" 2>&1 \
            || { cat "$dir/log" >&2; die "the index of Debian's $suite could not be read: is the package mirror reachable?"; }
        fresh_index[$dir]=1
    fi

    say "fetching ${file##*/}"
    (cd "$deps/download" && apt-get "${private[@]}" "$@") >> "$dir/log" 2>&1 \
        || { cat "$dir/log" >&2; die "${file##*/} could not be downloaded"; }
    has_hash "$sha256" "$file" || die "${file##*/} does not have the expected SHA-256 $sha256"
}

# A clone in another folder reuses what an earlier one compiled.
export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

# configure PRESET OPTION... : runs CMake quietly; the log tells when it fails.
configure() {
    local log="build/configure-$1.log"
    mkdir -p build
    cmake --preset "$@" > "$log" 2>&1 || { tail -n 40 "$log" >&2; die "CMake failed (log: $log)"; }
}

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
