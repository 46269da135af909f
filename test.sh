#!/usr/bin/env bash
# Installs what is missing, then builds, tests and checks everything. With names of stages, as in
# "./test.sh core lint", these alone. Without names:
#   lint      format, shell scripts, links of the pages, clang-tidy over the sources that have changed of late
#   asan      core, zvm, windows and a few random users under the address and undefined behaviour sanitizers
#   fuzz      each fuzz target for a short while
#   program   the program as users build it: saves that fail, a session, the clipboard, a start on Wayland,
#             some long use
#   spatial   points from spatial files, and from a PostGIS server that the test starts, under the sanitizers
# By name alone, for their time:
#   core      the core, zvm and their tests on a build without Qt; saves that fail
#   peers     R's gstat: experimental semivariograms; fits; semivariances, kriging and cokriging of exported models;
#             the commands of the tutorial and of the pages beside it
#   windows   the windows and their tests on a plain build; the program as users build it
#   tour      the session of `program`
#   tidy      clang-tidy over all sources but the tests; `linttests`: over the tests
#   longfuzz  each fuzz target for a number of executions, 20 million in all
#   fuzzcoverage  lines of files/ and session/ that the corpora reach
#   users     random users, 200,000 events
#   longuse   100,000 redraws, 1,000 loads, 1,000 openings of each window
#   bench     the benchmarks with their yardsticks
#   pictures  takes the pictures of the documentation from the program
#   package   makes Debian package and archive and tries them out, as root on this machine, too
#   coverage  lines and branches that the tests reach, by folder
# The last line is "N passed, N failed": the cases of all tests, and every other check as one.
set -uo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")" || exit 1

# What a stage takes, in this order: preset, targets, labels of the tests that are run side by side.
readonly steps="
lint         lint         - lint
asan         asan         zevfit_core_tests,zvm_tests,zevfit_window_tests,zevfit_user_tests core,zvm,house,windows,fewusers
fuzz         asan         zevfit_fuzz fuzz
program      program      zevfit_program_tests crash,desktop,wayland,tour,shortuse
core         core         zevfit_core_tests,zvm_tests,zevfit_crash_tests core,zvm,house,crash
peers        asan         zevfit_exchange_cases,zevfit_fit_cases,zvm,zvm-plot peers
spatial      asan         zevfit_spatial_tests,zvm,zvm-ogr,zvm-plot spatial
windows      debug        zevfit_window_tests,zevfit_desktop_tests,zevfit_wayland_tests,zevfit_long_tests windows,desktop,wayland,shortuse
windows      program      zevfit,zvm -
tour         program      zevfit_tour tour
tidy         lint         - tidy
tidy         bench        - tidybench
linttests    lint         - linttests
longfuzz     fuzz         zevfit_fuzz longfuzz
fuzzcoverage fuzzcoverage zevfit_fuzz fuzzcoverage
users        asan         zevfit_user_tests users
longuse      program      zevfit_long_tests longuse
bench        bench        all bench
pictures     program      zevfit_pictures,zevfit_tour,zvm,zvm-plot tour,pictures
package      package      all package
coverage     coverage     zevfit_core_tests,zvm_tests,zevfit_spatial_tests,zevfit_window_tests reset
coverage     coverage     - core,zvm,spatial,windows
coverage     coverage     - coverage
"

# The Debian packages that a preset, or a stage of that name, takes beside those of every stage.
readonly every="g++ cmake ninja-build qt6-base-dev qt6-svg-dev libqt6svg6 fonts-liberation libgtest-dev poppler-utils
  binutils libcli11-dev nlohmann-json3-dev python3"
declare -rA packages=(
  [lint]="git clang clang-format clang-tidy shellcheck" [tidy]="libgdal-dev" [fuzz]="clang libclang-rt-14-dev"
  [asan]="clang libclang-rt-14-dev mold" [fuzzcoverage]="clang libclang-rt-14-dev llvm-14" [peers]="r-cran-gstat parallel"
  [pictures]="r-cran-gstat"
  [spatial]="libgdal-dev gdal-bin postgresql-15-postgis-3"
  [program]="xvfb xauth xclip weston qt6-wayland" [debug]="xvfb xauth xclip weston qt6-wayland"
  [coverage]="gcovr libgdal-dev gdal-bin postgresql-15-postgis-3"
  [bench]="libbenchmark-dev libqcustomplot-dev xvfb xauth r-cran-gstat"
  [package]="libgdal-dev gdal-bin r-cran-gstat parallel poppler-utils gzip librsvg2-bin lintian desktop-file-utils appstream shared-mime-info man-db fakeroot
    hicolor-icon-theme libglib2.0-bin imagemagick xdotool x11-utils xvfb xauth"
)

export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:exitcode=99
ASAN_OPTIONS+=:allow_addr2line=1
export UBSAN_OPTIONS=print_stacktrace=1:exitcode=99
readonly logs=build/logs
jobs=$(nproc) passed=0 failed=0
mkdir -p "$logs"

# run NAME COMMAND...: keeps the output in $log, the exit code in $code, the seconds in $took.
run() {
  local start=$SECONDS
  log=$logs/${1//[^a-z0-9]/-}.log
  "${@:2}" >"$log" 2>&1 </dev/null
  code=$?
  took=$((SECONDS - start))
}

# row NAME SECONDS PASSED FAILED: counts, and prints the line of the step.
row() {
  passed=$((passed + $3))
  failed=$((failed + $4))
  local verdict=ok
  [ "$4" -eq 0 ] || verdict=FAILED
  printf '%-6s  %-32s %7.0f s  %5d passed, %d failed\n' "$verdict" "$1" "$2" "$3" "$4"
}

# prepare NAME COMMAND...: what only counts when it fails.
prepare() {
  run "$@"
  row "$1" "$took" 0 $((code != 0))
  [ "$code" -eq 0 ] || tail -n 200 "$log" | sed 's/^/    /'
  return "$code"
}

# build PRESET TARGETS
build() {
  cmake --preset "$1" || return
  # shellcheck disable=SC2086 # a list of words
  [ "$2" = - ] || cmake --build "build/$1" --parallel "$jobs" --target ${2//,/ }
}

# counts RESULTS LABEL: seconds, passed, failed of the tests LABEL.*, by ctest's report; the seconds of
# tests that ran side by side are added. A label without tests has one failed.
counts() {
  awk -F'"' -v label="$2." '
    /<testcase / && index($2, label) == 1 {
      seconds += $6
      if ($8 == "run") passed++; else if ($8 != "disabled") failed++
    }
    END { print seconds + 0, passed + 0, passed + failed ? failed + 0 : 1 }' "$1"
}

# tests STAGE PRESET LABELS: what failed is shown, and lines of tests that begin with "| ".
tests() {
  local results=$PWD/build/$2/results.xml before=$failed label
  : >"$results"
  run "$1-$3" ctest --test-dir "build/$2" --label-regex "^(${3//,/|})\$" --parallel "$jobs" \
    --timeout 900 --no-tests=error --output-on-failure --output-junit "$results"
  for label in ${3//,/ }; do
    # shellcheck disable=SC2046 # three words
    row "$1: $label" $(counts "$results" "$label")
  done
  if [ "$code" -ne 0 ] && [ "$failed" -eq "$before" ]; then row "$1: ctest" "$took" 0 1; fi
  [ "$failed" -eq "$before" ] ||
    grep -vE '^ *([0-9]+/[0-9]+ Test .* Passed |Start +[0-9]+:)' "$log" | head -n 300 | sed 's/^/    /'
  sed -n 's/^| /    /p' "build/$2/Testing/Temporary/LastTest.log"
}

# step STAGE PRESET TARGETS LABELS
step() {
  prepare "$1: build" build "$2" "$3" || return
  [ "$4" = - ] || tests "$1" "$2" "$4"
}

[ $# -gt 0 ] || set -- lint asan fuzz program spatial
wanted=$every plan=
for stage in "$@"; do
  lines=$(awk -v stage="$stage" '$1 == stage' <<<"$steps")
  [ -n "$lines" ] || { sed -n '2,/^set/{/^#/s/^# \{0,1\}//p}' test.sh; exit 2; }
  plan+=$lines$'\n'
  while read -r _ preset _; do wanted+=" ${packages[$preset]:-}"; done <<<"$lines"
  wanted+=" ${packages[$stage]:-}"
done

# shellcheck disable=SC2086 # a list of words
prepare "packages" .ci/install $wanted
while read -r name preset targets labels; do
  [ -z "$name" ] || step "$name" "$preset" "$targets" "$labels"
done <<<"$plan"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
