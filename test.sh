#!/usr/bin/env bash
# Installs what is missing, then builds, tests and checks everything. With names of stages, as in
# "./test.sh core lint", these alone:
#   core      the core and its tests, on a build without Qt
#   windows   the windows and their tests, and the program as users build it
#   tour      a session on the whole program, on a virtual display, with the files that it leaves
#   asan      all tests under the address and undefined behaviour sanitizers
#   lint      format, clang-tidy, shell scripts
#   fuzz      each fuzz target for a short while
#   longfuzz  each fuzz target for a number of executions, 20 million in all; not part of a run without
#             names, for its time
#   fuzzcoverage  lines of files/ and session/ that the corpora reach; the same
#   linttests clang-tidy over the tests; not part of a run without names, for its time
#   users     random users, 200,000 events; not part of a run without names
#   longuse   100,000 redraws, 1,000 loads, 1,000 openings of each window; the same
#   bench     the benchmarks with their yardsticks; not part of a run without names
#   pictures  takes the pictures of the documentation from the program; the same
#   package   makes the Debian package and the archive and tries them out; as root it installs the
#             package on this machine and removes it again; the same
#   coverage  lines and branches that the tests reach, by folder; the same
# The last line is "N passed, N failed": the cases of all tests, and every other check as one.
set -uo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")" || exit 1

readonly logs=build/logs
readonly test_seconds=900 # of one test program; more is a hang
readonly fuzz_seconds=10  # of one fuzz target
readonly fuzz_share=95    # of the lines that the corpora reach, in per cent
jobs=$(nproc)
mkdir -p "$logs"
passed=0
failed=0

# run NAME COMMAND...: keeps the output in $log, the exit code in $code, the seconds in $took.
run() {
  local start=$SECONDS
  log=$logs/${1//[^a-z0-9]/-}.log
  "${@:2}" >"$log" 2>&1 </dev/null
  code=$?
  took=$((SECONDS - start))
}

# report NAME PASSED FAILED: counts, prints the line of the step, and behind a failed one why.
report() {
  passed=$((passed + $2))
  failed=$((failed + $3))
  local verdict=ok
  [ "$3" -eq 0 ] || verdict=FAILED
  printf '%-6s  %-32s %5d s  %5d passed, %d failed\n' "$verdict" "$1" "$took" "$2" "$3"
  [ "$3" -eq 0 ] || details | sed 's/^/    /'
}

# The failed cases of a test program and how it ended; of anything else the end of its output.
details() {
  if grep -q '^\[ RUN ' "$log"; then
    awk '/^\[ RUN /{text=""} {text=text $0 "\n"} /^\[  FAILED  \].*ms\)/{printf "%s", text}' "$log" |
      head -n 300
    [ "$code" -le 1 ] || printf 'Exit code %d; the last lines:\n%s\n' "$code" "$(tail -n 60 "$log")"
  else
    tail -n 200 "$log"
  fi
}

# prepare NAME COMMAND...: what only counts when it fails.
prepare() {
  run "$@"
  report "$1" 0 $((code != 0))
  [ "$code" -eq 0 ]
}

# check NAME COMMAND...: counts as one, passed or failed.
check() {
  run "$@"
  report "$1" $((code == 0)) $((code != 0))
}

# tests NAME COMMAND...: a GoogleTest program, counted by its cases. One that has no cases, ends early
# or fails behind them has one failure more.
tests() {
  run "$1" timeout --kill-after=10 "$test_seconds" "${@:2}"
  local good bad
  good=$(grep -c '\[       OK \]' "$log")
  bad=$(grep -cE '\[  FAILED  \] .* \([0-9]+ ms\)' "$log")
  if [ $((good + bad)) -eq 0 ] || ! grep -q '^\[==========\] .* ran\.' "$log" ||
    [ "$code" -gt 1 ] || [ $((code != 0)) -gt "$bad" ]; then
    bad=$((bad + 1))
  fi
  report "$1" "$good" "$bad"
}

# build PRESET TARGET...
build() {
  cmake --preset "$1" && cmake --build "build/$1" --parallel "$jobs" --target "${@:2}"
}

packages() {
  .ci/install g++ cmake ninja-build qt6-base-dev libqt6svg6 fonts-liberation binutils \
    libgtest-dev libbenchmark-dev libqcustomplot-dev clang clang-format clang-tidy \
    libclang-rt-14-dev llvm-14 python3 shellcheck gcovr xvfb xauth poppler-utils xclip
}

without_qt() {
  ! grep -E '/qt6/|libQt6' build/core/build.ninja && ! readelf -d "$1" | grep Qt
}

stage_core() {
  local program=build/core/tests/zevfit_core_tests
  prepare "core: build" build core zevfit_core_tests zevfit_crash_tests || return
  check "core: free of Qt" without_qt "$program"
  tests "core: tests" "$program"
  tests "core: saves that fail" build/core/tests/zevfit_crash_tests
}

stage_windows() {
  prepare "windows: build" build debug zevfit_window_tests zevfit_desktop_tests zevfit_pictures \
    zevfit_long_tests && {
    tests "windows: tests" env QT_QPA_PLATFORM=offscreen build/debug/tests/zevfit_window_tests
    tests "windows: tests on a display" xvfb-run -a env QT_QPA_PLATFORM=xcb \
      build/debug/tests/zevfit_desktop_tests
  }
  tests "windows: long use, in short" env ZEVFIT_LONG_USE=2 build/debug/tests/zevfit_long_tests
  check "windows: release build" build release zevfit
}

stage_tour() {
  prepare "tour: build" build debug zevfit_tour || return
  tests "tour: a session" xvfb-run -a env QT_QPA_PLATFORM=xcb build/debug/tests/zevfit_tour build/tour
}

sanitizers() {
  export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:exitcode=99
  export UBSAN_OPTIONS=print_stacktrace=1:exitcode=99
}

stage_asan() {
  prepare "asan: build" build asan zevfit_core_tests zevfit_window_tests zevfit_user_tests || return
  sanitizers
  tests "asan: core tests" build/asan/tests/zevfit_core_tests
  tests "asan: window tests" env QT_QPA_PLATFORM=offscreen build/asan/tests/zevfit_window_tests
  tests "asan: random users" env ZEVFIT_USERS="8 600" build/asan/tests/zevfit_user_tests
}

stage_longuse() {
  prepare "long use: build" build debug zevfit_long_tests || return
  tests "long use: a day's work" build/debug/tests/zevfit_long_tests
}

stage_users() {
  prepare "users: build" build asan zevfit_user_tests || return
  sanitizers
  tests "users: random users" env ZEVFIT_USERS="50 4000" build/asan/tests/zevfit_user_tests
}

package_tools() {
  .ci/install gzip librsvg2-bin lintian desktop-file-utils appstream shared-mime-info man-db fakeroot \
    hicolor-icon-theme libglib2.0-bin imagemagick xdotool x11-utils
}

stage_package() {
  # shellcheck source=packaging/checks.sh
  # shellcheck source=packaging/checks.sh
  . packaging/checks.sh
  prepare "package: tools" package_tools && prepare "package: build" build package all &&
    prepare "package: cpack" make_packages && prepare "package: unpack" unpack_deb || return
  check "package: lintian" lintian_is_content
  check "package: dependencies" dependencies
  check "package: menu entry" menu_entry
  check "package: catalogue entry" catalogue_entry
  check "package: icons" icons
  check "package: file type" file_type
  check "package: in a scratch root" into_scratch_root
  [ "$(id -u)" -ne 0 ] || check "package: on this machine" onto_this_machine
  check "package: archive" unpacked_archive archive archive
  check "package: archive elsewhere" unpacked_archive "some other/folder" archive-elsewhere
}

format() {
  find . -path ./build -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 clang-format --dry-run --Werror
}

# tidy PRESET FOLDER...: every source in the folders, as the preset compiles it.
tidy() {
  find "${@:2}" -name '*.cpp' -print0 |
    xargs -0 -n 1 -P "$jobs" clang-tidy -p "build/$1" --quiet 2>&1 |
    sed '/^[0-9]* warnings\? generated\.$/d'
}

stage_lint() {
  check "lint: format" format
  check "lint: shell scripts" shellcheck -x run.sh test.sh .ci/run .ci/install packaging/*.sh
  # Sources include what moc makes of them.
  prepare "lint: generated sources" build debug zevfit_windows_autogen zevfit_window_tests_autogen &&
    check "lint: clang-tidy" tidy debug \
      session model files coreg plot report windows platform main.cpp
  prepare "lint: fuzz configuration" cmake --preset fuzz &&
    check "lint: clang-tidy of fuzz" tidy fuzz fuzz
  prepare "lint: benchmark configuration" cmake --preset bench &&
    check "lint: clang-tidy of benchmarks" tidy bench benchmarks
}

stage_linttests() {
  prepare "lint: generated sources" build debug zevfit_windows_autogen zevfit_window_tests_autogen &&
    check "lint: clang-tidy of tests" tidy debug tests
}

# fuzz_programs PRESET
fuzz_programs() {
  find "build/$1/fuzz" -maxdepth 1 -type f -executable | sort
}

# fuzz_target PROGRAM LIMIT...: on a copy of its corpus, so that the tree stays as it is, and with
# scratch files in memory where there is such a place.
fuzz_target() {
  local name scratch memory=/dev/shm
  name=$(basename "$1")
  [ -d "$memory" ] || memory=${TMPDIR:-/tmp}
  scratch=$(mktemp -d -p "$memory") || return
  mkdir "$scratch/files" && cp -r "fuzz/corpus/$name" "$scratch/corpus" &&
    TMPDIR=$scratch/files "$1" "${@:2}" -timeout=10 -rss_limit_mb=2048 -dict="fuzz/$name.dict" \
      -artifact_prefix="$PWD/$logs/$name-" "$scratch/corpus"
  local code=$?
  rm -rf -- "$scratch"
  return "$code"
}

# fuzz_check PROGRAM LIMIT...: one check, and behind it how many inputs the target was given.
fuzz_check() {
  check "fuzz: $(basename "$1")" fuzz_target "$@"
  sed -n 's/^Done \([0-9]*\) runs.*/    \1 executions/p' "$log"
}

stage_fuzz() {
  prepare "fuzz: build" build fuzz all || return
  local program
  for program in $(fuzz_programs fuzz); do
    fuzz_check "$program" -max_total_time="$fuzz_seconds"
  done
}

# Executions of each target in thousands: more of those that are quick.
declare -rA long_runs=(
  [number]=7500 [pattern]=5500 [parameters]=5600 [caption]=500 [direction]=500 [reader]=250
  [structure]=300 [save]=100
)

stage_longfuzz() {
  prepare "longfuzz: build" build fuzz all || return
  local program name
  for program in $(fuzz_programs fuzz); do
    name=$(basename "$program")
    fuzz_check "$program" -runs="${long_runs[$name]:-500}000"
  done
}

# What the corpora reach: lines, lines left out and share, for each file of two folders and together.
fuzz_lines() {
  local counts=build/fuzzcoverage/counts program
  local -a objects=()
  mkdir -p "$counts" || return
  rm -f "$counts"/*
  for program in $(fuzz_programs fuzzcoverage); do
    LLVM_PROFILE_FILE=$counts/$(basename "$program").profraw fuzz_target "$program" -runs=0 ||
      return
    objects+=(-object "$program")
  done
  llvm-profdata-14 merge -o "$counts/all" "$counts"/*.profraw || return
  llvm-cov-14 report "${objects[@]:1}" -instr-profile="$counts/all" >"$counts/report" || return
  awk -v least="$fuzz_share" '
    $1 ~ /^(files|session)\// {
      printf "%-32s %5d lines %5d left out %6.1f %%\n", $1, $8, $9, $8 ? 100 * ($8 - $9) / $8 : 100
      lines += $8
      missed += $9
    }
    END {
      share = lines ? 100 * (lines - missed) / lines : 0
      printf "%-32s %5d lines %5d left out %6.1f %%\n", "all", lines, missed, share
      exit share < least
    }' "$counts/report" >"$counts/table"
}

stage_fuzzcoverage() {
  prepare "fuzzcoverage: build" build fuzzcoverage all || return
  check "fuzzcoverage: $fuzz_share % of the lines" fuzz_lines
  cat build/fuzzcoverage/counts/table
}

stage_bench() {
  local program display
  prepare "bench: build" build bench all || return
  local results=build/bench/results
  mkdir -p "$results"
  for program in build/bench/benchmarks/*; do
    if [ ! -f "$program" ] || [ ! -x "$program" ]; then continue; fi
    case $program in
      */start_qt_bench) display=(xvfb-run -a env QT_QPA_PLATFORM=xcb) ;; # a start shows a window
      *) display=(env QT_QPA_PLATFORM=offscreen) ;;
    esac
    check "bench: $(basename "$program")" "${display[@]}" "$program" \
      --benchmark_out="$results/$(basename "$program").json" --benchmark_out_format=json
    cat "$log"
  done
  check "bench: page" python3 benchmarks/write_page.py "$results" docs/performance.md
}

stage_pictures() {
  prepare "pictures: build" build debug zevfit_pictures || return
  local scale
  for scale in 1 2; do
    check "pictures: at ${scale}00 %" env QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR="$scale" \
      build/debug/tests/zevfit_pictures examples/meuse.zvm docs/pictures "-${scale}00"
  done
  stage_tour
  mkdir -p docs/tour
  check "pictures: of the tour" cp build/tour/*.png docs/tour
}

# A line for each folder, from gcovr's table of files: name, lines, covered lines, their share,
# branches, covered branches.
by_folder() {
  gcovr --root . --exclude tests/ --exclude build/ --exclude-throw-branches \
    --exclude-unreachable-branches build/coverage --csv |
    awk -F, 'NR > 1 {
        split($1, path, "/"); l[path[1]] += $2; lc[path[1]] += $3; b[path[1]] += $5; bc[path[1]] += $6
      }
      END {
        for (f in l) printf "%-12s %6d lines %6.1f %%  %6d branches %6.1f %%\n", f, l[f],
                            l[f] ? 100 * lc[f] / l[f] : 100, b[f], b[f] ? 100 * bc[f] / b[f] : 100
      }' | sort
}

# Below its least shares a folder fails: 97 % of lines and 90 % of branches, of what knows the
# toolkit 90 % of lines.
by_folder_enough() {
  by_folder | awk '{
      core = $1 !~ /^(windows|platform)$/
      print; if ($4 < (core ? 97 : 90) || (core && $8 < 90)) short = 1
    } END { exit short }'
}

stage_coverage() {
  prepare "coverage: build" build coverage zevfit_core_tests zevfit_window_tests || return
  find build/coverage -name '*.gcda' -delete
  tests "coverage: core tests" build/coverage/tests/zevfit_core_tests
  tests "coverage: window tests" env QT_QPA_PLATFORM=offscreen build/coverage/tests/zevfit_window_tests
  check "coverage: summary" by_folder_enough
  cat "$log"
}

for stage in "$@"; do
  if ! declare -F "stage_$stage" >/dev/null; then
    sed -n '2,/^set/{/^#/s/^# \{0,1\}//p}' test.sh
    exit 2
  fi
done
[ $# -gt 0 ] || set -- core windows tour asan lint fuzz

prepare "packages" packages
for stage in "$@"; do "stage_$stage"; done

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
