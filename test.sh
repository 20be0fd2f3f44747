#!/usr/bin/env bash
# Builds everything and runs all tests, without a display.
#   ./test.sh             the optimised build
#   ./test.sh --sanitize  the build with the address and undefined behaviour sanitizers
#   ./test.sh --lint      checks the layout with clang-format and the code with clang-tidy
set -euo pipefail

# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"

run_tests() {
    local preset=$1
    shift
    install_missing build
    configure "$preset" "$@"
    build "$preset"
    ctest --preset "$preset"
}

run_sanitized() {
    export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1
    export LSAN_OPTIONS=suppressions=$project_root/cmake/leaks.supp:print_suppressions=0
    export UBSAN_OPTIONS=print_stacktrace=1
    run_tests sanitize -DMEASURETOOLS_BENCH=OFF
}

# tidy FILE: silent about a file without findings. Exported for xargs.
tidy() {
    local findings
    if ! findings=$(clang-tidy --quiet -p build/lint "$1" 2>&1); then
        printf '%s\n%s\n' "$1" "$(grep -v 'warnings\{0,1\} generated\|treated as error' <<<"$findings")"
        return 1
    fi
}

run_lint() {
    install_missing build lint
    local sources
    mapfile -d '' -t sources < <(git ls-files -z -- '*.cpp' '*.h')
    clang-format --dry-run -Werror "${sources[@]}" || fail "clang-format -i on these files mends their layout."
    configure release
    build release # what is generated is included
    # Without the precompiled headers, so that a source has to include what it uses.
    mkdir -p build/lint
    sed 's| -Winvalid-pch -include [^ ]*/cmake_pch.hxx||' build/release/compile_commands.json >build/lint/compile_commands.json
    export -f tidy
    # Not the tests: they are most of the code, and the compiler's warnings, which are errors, say nearly as much of them.
    # shellcheck disable=SC2016 # the inner shell expands it
    git ls-files -z -- 'src/*.cpp' 'bench/*.cpp' 'resources/*.cpp' | xargs -0 -n 1 -P "$(nproc)" bash -c 'tidy "$1"' tidy ||
        fail "clang-tidy found the above."
    say "clang-format finds nothing in ${#sources[@]} files, clang-tidy nothing outside the tests."
}

case "$#:${1-}" in
0:) run_tests release ;;
1:--sanitize) run_sanitized ;;
1:--lint) run_lint ;;
*) fail "Usage: ./test.sh [--sanitize|--lint]" ;;
esac
