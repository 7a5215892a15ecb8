# shellcheck shell=bash
# The components of .ci/run. Each runs in a shell of its own in the top folder of the tree, with the functions of
# scripts/lib.sh, and fails by its exit code. CI_RESULT is where the outcome of ctest is to be left.

CLANG_TIDY_SECONDS="${CLANG_TIDY_SECONDS:-420}"

# Hand-written C++ files under version control; an argument narrows the list to what has changed since that commit.
handwritten_files() {
    local names
    if [[ $# -gt 0 ]]; then
        names="$(git diff --name-only --diff-filter=d "$1" -- '*.h' '*.cpp')"
    else
        names="$(git ls-files -- '*.h' '*.cpp')"
    fi
    grep -v '^tests/data/' <<<"$names" || true
}

component_format() {
    dependencies check
    handwritten_files | xargs -r clang-format-14 --dry-run --Werror
}

component_cppcheck() {
    dependencies check
    configure release -DBUILD_TESTING=ON -DNRVK_BENCH=ON
    mkdir -p build/cppcheck
    # The contract passes strings and vectors by value; this cppcheck takes a conditional text for an integer.
    cppcheck --quiet --error-exitcode=1 --inline-suppr -j "$JOBS" --cppcheck-build-dir=build/cppcheck \
        --std=c++17 --language=c++ --enable=warning,performance,portability \
        --suppress=passedByValue --suppress=CastIntegerToAddressAtReturn \
        -DNRVK_EXPORT= -Ipublicapi/omci_host -Ipublicapi/ont_omci_managed_entity -Isrc -I. \
        src host capture simulator olt
}

# Files that the last commits have changed come first, so that the time goes where the work is; the rest follows while
# there is time left. Tests are left to the compilers: without precompiled headers each of them takes as long as ten others.
component_tidy() {
    local base files outcome="$ROOT/build/tidy/findings" begin=$SECONDS
    dependencies build run test check
    configure release -B build/tidy -DBUILD_TESTING=OFF -DNRVK_BENCH=ON -DNRVK_PROGRAMS=ON
    build tidy nrvk_generate
    base="$(git merge-base HEAD "${NRVK_TIDY_BASE:-origin/main}" 2>/dev/null || true)"
    if [[ -z "$base" || "$base" == "$(git rev-parse HEAD)" ]]; then
        base="$(git rev-list --max-count=20 HEAD | tail -n 1)"
    fi
    files="$({ handwritten_files "$base"; handwritten_files; } | grep '\.cpp$' | awk '!seen[$0]++' | in_compile_commands)"
    [[ -n "$files" ]] || fail "no files to check"
    rm -rf "$outcome"
    mkdir -p "$outcome"
    # One file of findings for each source; SIGTERM at the end of the time leaves the finished ones.
    # shellcheck disable=SC2016  # the inner shell expands
    timeout "$CLANG_TIDY_SECONDS" xargs -P "$JOBS" -I {} bash -c \
        'name="$2/${1//\//_}"; clang-tidy-14 --quiet -p build/tidy "$1" >"$name.running" 2>/dev/null || touch "$name.failed"
         mv "$name.running" "$name.done"' tidy {} "$outcome" <<<"$files" || [[ $? == 124 ]] || fail "clang-tidy did not run"
    # A header's finding comes once with each source that includes it.
    cat "$outcome"/*.done | awk '!/(error|warning):/ || !seen[$0]++'
    echo "clang-tidy: $(find "$outcome" -name '*.done' | wc -l) of $(wc -l <<<"$files") files in $((SECONDS - begin)) s"
    [[ -z "$(find "$outcome" -name '*.failed')" ]]
}

# Passes on those names that the build compiles.
in_compile_commands() {
    local file
    while read -r file; do
        ! grep -qF "\"file\": \"$ROOT/$file\"" build/tidy/compile_commands.json || echo "$file"
    done
}

# test_preset PRESET: the developer's own command, its ctest outcome kept.
test_preset() {
    local status=0
    rm -f "build/$1/ctest.xml"
    scripts/test --preset "$1" || status=$?
    if [[ -f "build/$1/ctest.xml" ]]; then cp "build/$1/ctest.xml" "$CI_RESULT"; fi
    return "$status"
}

component_test() { test_preset release; }
component_asan() { test_preset asan; }
component_tsan() { test_preset tsan; }
component_arm() { test_preset arm; }
component_mips() { test_preset mips; }

# Everything is compiled, warnings being errors; of the tests those that are programs of this compiler run by themselves.
component_clang() {
    local others='^(catalogue|conventions|generator|onu-sim|packaging)\.|^olt\.[a-z_]+$'
    dependencies build run test check
    configure release -B build/clang -DCMAKE_CXX_COMPILER=clang++-14 -DBUILD_TESTING=ON -DNRVK_BENCH=ON -DNRVK_PROGRAMS=ON
    build clang
    ctest --test-dir build/clang --parallel "$JOBS" --output-on-failure --no-tests=error --output-junit "$CI_RESULT" \
        --exclude-regex "$others"
}

component_fuzz() { scripts/fuzz --smoke "${FUZZ_SECONDS:-60}"; }

# The interface against the committed one, then that a changed record or virtual table would have been seen.
component_abi() {
    dependencies build check
    scripts/abi
    (cd tests/conventions && python3 -B -m unittest test_abi)
}

component_shell() {
    dependencies build check
    (cd tests/conventions && python3 -B -m unittest test_scripts)
}

component_soak() { scripts/soak --messages "${SOAK_MESSAGES:-10000000}"; }

component_package() { scripts/package; }

component_docs() { scripts/docs; }

component_instructions() { scripts/instructions; }

component_bench() { scripts/bench --smoke; }

# What a newcomer does: a clone of what is committed, nothing built, one command.
component_demo() {
    local clone status=0
    clone="$(mktemp -d "${TMPDIR:-/tmp}/nrvk-clone.XXXXXX")"
    git clone --quiet "$ROOT" "$clone/tree"
    (cd "$clone/tree" && CCACHE_BASEDIR="$clone/tree" timeout 600 scripts/demo) || status=$?
    rm -rf "$clone"
    return "$status"
}

component_coverage() { scripts/coverage; }

# The unit tests and the demo under valgrind, beside the sanitizers: it needs no special build and sees uninitialized
# values too.
component_valgrind() {
    local program
    local -a valgrind=(valgrind --quiet --error-exitcode=1 --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite)
    dependencies build run test check
    configure debug -DBUILD_TESTING=ON -DNRVK_BENCH=OFF
    build debug
    find build/debug/bin -name '*_test*' -type f -executable | sort >build/valgrind.list
    [[ -s build/valgrind.list ]] || fail "no test programs"
    while read -r program; do
        step "$program"
        "${valgrind[@]}" "$program" </dev/null
    done <build/valgrind.list
    demo_under_valgrind "${valgrind[@]}"
}

# demo_under_valgrind VALGRIND...: an error in a program that the demo ends, or that ends well all the same, is seen by
# what valgrind has written.
demo_under_valgrind() {
    local logs status=0
    logs="$(mktemp -d "${TMPDIR:-/tmp}/nrvk-valgrind.XXXXXX")"
    NRVK_UNDER="$* --log-file=$logs/%p" scripts/demo || status=$?
    cat "$logs"/*
    [[ "$status" == 0 && -n "$(ls "$logs")" && -z "$(cat "$logs"/*)" ]] || status=1
    rm -rf "$logs"
    return "$status"
}
