#!/usr/bin/env bash
# shellcheck disable=SC2317,SC2016  # stages are called by name, and one in a shell of its own
#
# Builds and runs all tests, and ends with a status other than 0 when anything failed.
#
# usage: test.sh [quick|windows]      quick: the tests of the release build only; windows: those of the Windows one
#
# Each stage leaves its output in build/test-logs/STAGE.log.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
cd "$root"
logs=build/test-logs
jobs=2
waiting_jobs=3 # of tests that wait for the disk or for Wine more than they compute
kFuzzSeconds=10
failed=0
summary=()

build() { # PRESET [TARGET]
    cmake --preset "$1"
    cmake --build --preset "$1" --target "${2:-all}"
}

stage_release() {
    build release
    tools/with-desktop --compositor -- ctest --preset release --no-tests=error -j "$jobs"
}

stage_asan() {
    build asan
    ctest --preset asan --no-tests=error -j "$waiting_jobs"
}

fuzz_one() { # PROGRAM
    local name seeds scratch status=0
    name=$(basename "$1")
    seeds="tests/fuzz/corpus/${name#fuzz_}"
    if [[ ! -d $seeds ]]; then
        echo "$name: no seed corpus in $seeds"
        return 1
    fi
    scratch=$(mktemp -d)
    cp -r -- "$seeds/." "$scratch"
    # What a run finds stays in build/asan; new inputs go to the scratch folder and not into the checkout.
    "$1" -max_total_time="$kFuzzSeconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/asan/$name-" "$scratch" >"$logs/$name.log" 2>&1 || status=$?
    rm -rf -- "$scratch"
    if [[ $status -eq 0 ]]; then
        echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$logs/$name.log") inputs, nothing found"
    else
        tail -n 60 "$logs/$name.log"
        echo "$name: FAILED (status $status)"
    fi
    return "$status"
}

stage_fuzz() {
    local programs
    # The libraries are those of the tests with sanitizers.
    build asan tests/fuzz/all
    mapfile -t programs < <(find build/asan/tests/fuzz -maxdepth 1 -type f -executable -name 'fuzz_*' | sort)
    if [[ ${#programs[@]} -eq 0 ]]; then
        echo "no fuzz target was built"
        return 1
    fi
    export -f fuzz_one
    export logs kFuzzSeconds
    printf '%s\0' "${programs[@]}" | xargs -0 -n 1 -P "$jobs" bash -c 'fuzz_one "$1"' fuzz_one
}

cpp_files() {
    local folders=() folder
    for folder in src tests bench tools; do
        [[ ! -d $folder ]] || folders+=("$folder")
    done
    find "${folders[@]}" \( -name '*.cpp' -o -name '*.h' \) -type f -print0 | sort -z
}

stage_format() {
    cpp_files | xargs -0 clang-format --dry-run -Werror
}

stage_tidy() {
    # Some checked code includes headers that the build makes.
    build release >/dev/null
    tools/tidy build/release "$jobs"
}

# The same tests on the Windows build, under Wine, and the program itself in a virtual desktop.
stage_windows() {
    packaging/windows/prepare-qt
    build windows
    # One program of both systems over one store.
    build release paneda
    ctest --preset windows --no-tests=error -j "$waiting_jobs"
    packaging/windows/make-zip
}

run_stage() { # STAGE
    local start=$SECONDS status
    printf '\n==== %s\n' "$1"
    # errexit has to hold within the stage, which it does not where a status is tested.
    set +e
    (
        set -e
        "stage_$1"
    ) 2>&1 | tee "$logs/$1.log"
    status=${PIPESTATUS[0]}
    set -e
    if [[ $status -eq 0 ]]; then
        summary+=("$(printf '%-8s ok      %4d s' "$1" $((SECONDS - start)))")
    else
        summary+=("$(printf '%-8s FAILED  %4d s' "$1" $((SECONDS - start)))")
        failed=1
    fi
}

main() {
    local stages=(release windows asan fuzz format tidy) stage
    case "${1:-}" in
        "") ;;
        quick) stages=(release) ;;
        windows) stages=(windows) ;;
        *) echo "usage: test.sh [quick|windows]" >&2 && exit 2 ;;
    esac
    tools/install-packages.sh build run test windows
    mkdir -p "$logs"
    rm -f "$logs"/*.log
    for stage in "${stages[@]}"; do
        run_stage "$stage"
    done
    printf '\n==== summary\n'
    printf '%s\n' "${summary[@]}"
    exit "$failed"
}

main "$@"
