#!/usr/bin/env bash
# tidy.sh WHICH BUILD: clang-tidy, with the compile commands of the build folder, over
#   changed  the sources, tests apart, that differ from the revision $ZEVFIT_SINCE or else from the
#            last one that is more than a day older than the newest; without one, over all
#   all      all sources, tests apart
#   tests    the tests
set -euo pipefail
readonly folders=(session model files coreg plot report windows platform main.cpp fuzz benchmarks)

all() { find "${folders[@]}" -name '*.cpp'; }

# The revision that the changes are counted from; nothing where there is none.
base() {
  git rev-parse --verify --quiet "${ZEVFIT_SINCE:-}^{commit}" ||
    git rev-list -1 --min-age="$(($(git log -1 --format=%ct) - 86400))" HEAD
} 2>/dev/null

# changed BASE: of a header, the first source that includes it.
changed() {
  {
    git diff --name-only --diff-filter=d "$1" -- "${folders[@]}"
    git ls-files --others --exclude-standard -- "${folders[@]}"
  } | while read -r file; do
    case $file in
      *.cpp) echo "$file" ;;
      *.h) all | sort | xargs grep -lF "#include \"$file\"" | head -n 1 ;;
    esac
  done
}

what=$1
case $1 in
  changed)
    since=$(base) || since=
    if [ -n "$since" ]; then
      files=$(changed "$since")
      what="changed since $(git show -s --format='%h of %cI' "$since")"
    else
      files=$(all)
      what="all, as no revision is older than a day"
    fi
    ;;
  all) files=$(all) ;;
  tests) files=$(find tests -name '*.cpp') ;;
  *) exit 2 ;;
esac
files=$(sort -u <<<"$files")
echo "| clang-tidy: $(grep -c . <<<"$files" || true) sources ($what)"
xargs -r -n 1 -P "$(nproc)" clang-tidy -p "$2" --quiet <<<"$files" 2>&1 |
  sed '/^[0-9]* warnings\? generated\.$/d'
