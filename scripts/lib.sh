# shellcheck shell=bash
# Functions shared by the scripts. To be sourced; sets ROOT to the top of the tree.

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
JOBS="${JOBS:-$(nproc 2>/dev/null || echo 2)}"

# A copy of the tree in another folder (CI, demo from clean) finds the same objects in the compiler cache.
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$ROOT}"
export CCACHE_NOHASHDIR="${CCACHE_NOHASHDIR:-1}"

if [[ -t 1 && -z "${NO_COLOR:-}" ]]; then
    BOLD=$'\e[1m' GREEN=$'\e[32m' RED=$'\e[31m' PLAIN=$'\e[0m'
else
    BOLD='' GREEN='' RED='' PLAIN=''
fi

step() { printf '%s==> %s%s\n' "$BOLD" "$*" "$PLAIN"; }
good() { printf '%s%s%s\n' "$GREEN" "$*" "$PLAIN"; }
fail() {
    printf '%s%s: %s%s\n' "$RED" "$(basename "$0")" "$*" "$PLAIN" >&2
    exit 1
}

# The comment block at the top of a script is its help text.
show_help() { sed -n '2,/^[^#]/{/^#/s/^# \{0,1\}//p}' "$0"; }

need_value() { [[ $# -ge 2 && -n "$2" ]] || fail "$1 needs a value"; }

# in_list WORD LIST...: whether WORD is one of LIST.
in_list() {
    local word="$1" item
    shift
    for item in "$@"; do [[ "$item" == "$word" ]] && return 0; done
    return 1
}

# dependencies PURPOSE...: installs what is missing. NRVK_SKIP_DEPENDENCIES=1 leaves the machine alone.
dependencies() {
    [[ -n "${NRVK_SKIP_DEPENDENCIES:-}" ]] || "$ROOT/scripts/install-dependencies" "$@"
}

# configure PRESET [cmake option...]: prints the outcome only when it fails.
configure() {
    local preset="$1" log
    shift
    log="$ROOT/build/$preset.configure.log"
    mkdir -p "$ROOT/build"
    step "configure $preset"
    if ! (cd "$ROOT" && cmake --preset "$preset" "$@") >"$log" 2>&1; then
        cat "$log" >&2
        fail "configuring $preset failed"
    fi
}

# build PRESET [target...]
build() {
    local preset="$1"
    shift
    local what=()
    [[ $# -eq 0 ]] || what=(--target "$@")
    step "build $preset${*:+: $*}"
    cmake --build "$ROOT/build/$preset" --parallel "$JOBS" "${what[@]}"
}

# run_ctest PRESET [ctest option...]: leaves its outcome in build/PRESET/ctest.xml as well.
run_ctest() {
    local preset="$1"
    shift
    step "test $preset"
    (cd "$ROOT" && ctest --preset "$preset" --parallel "$JOBS" --no-tests=error \
        --output-junit "$ROOT/build/$preset/ctest.xml" "$@" </dev/null)
}

# private_apt FOLDER ARGUMENT...: apt-get with a package state of its own below FOLDER, in which nothing is installed. The
# machine's state stays as it is, and no privileges are needed.
private_apt() {
    local folder="$1"
    shift
    mkdir -p "$folder/state/lists/partial" "$folder/cache/archives/partial"
    touch "$folder/status"
    apt-get -qq -o "Dir::State=$folder/state" -o "Dir::State::status=$folder/status" -o "Dir::Cache=$folder/cache" \
        -o APT::Sandbox::User= "$@" </dev/null
}
