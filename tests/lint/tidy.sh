#!/usr/bin/env bash
# tidy.sh WHICH BUILD: clang-tidy, with the compile commands of the build folder, over
#   changed  sources that are not committed or have changed since the day before the
#            last commit, the latest first, as many as a short run has time for; with a revision in
#            ZEVFIT_SINCE all that have changed since; without a history all sources
#   all      all sources; it and `changed` leave out tests and benchmarks
#   tests, benchmarks  these
set -euo pipefail
readonly folders=(session model files coreg fitting plot report windows platform zvm main.cpp fuzz)
readonly most=40

all() { find "${folders[@]}" -name '*.cpp' | sort; }
once() { awk 'NF && !seen[$0]++'; }

# The revisions whose changes count: all of them where none is older than a day.
revisions() {
  local since=${ZEVFIT_SINCE:-}
  [ -n "$since" ] || since=$(git rev-list -1 --min-age="$(($(git log -1 --format=%ct) - 86400))" HEAD)
  git rev-parse --verify --quiet "${since:-HEAD}^{commit}" >/dev/null || return
  echo "${since:+$since..}HEAD"
}

# changed REVISIONS: of a header, the first source that includes it.
changed() {
  {
    git diff HEAD --name-only -- "${folders[@]}"
    git ls-files --others --exclude-standard -- "${folders[@]}"
    git log --format= --name-only "$1" -- "${folders[@]}"
  } | once | while read -r file; do
    case $file in
      *.cpp) [ ! -f "$file" ] || echo "$file" ;;
      *.h) all | xargs grep -lF "#include \"$file\"" | awk 'NR == 1' || true ;;
    esac
  done | once
}

# compiled BUILD: of the files of stdin those that the build compiles; what needs a library that is
# not there is left to the stage that installs it.
compiled() {
  while read -r file; do
    if grep -qF "/$file\"" "$1/compile_commands.json"; then echo "$file"; fi
  done
}

what=$1
case $1 in
  changed)
    if range=$(revisions 2>/dev/null); then
      files=$(changed "$range" | compiled "$2")
      count=$(grep -c . <<<"$files" || true)
      what="of $count changed in $range, the latest; all: ./test.sh tidy"
      [ -n "${ZEVFIT_SINCE:-}" ] || files=$(head -n "$most" <<<"$files")
    else
      files=$(all | compiled "$2")
      what="all, as there is no history"
    fi
    ;;
  all) files=$(all | compiled "$2") ;;
  tests | benchmarks) files=$(find "$1" -name '*.cpp' | sort) ;;
  *) exit 2 ;;
esac
echo "| clang-tidy of $(grep -c . <<<"$files" || true) sources ($what)"
xargs -r -n 1 -P "$(nproc)" clang-tidy -p "$2" --quiet <<<"$files" 2>&1 |
  sed '/^[0-9]* warnings\? generated\.$/d'
