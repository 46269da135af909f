#!/usr/bin/env bash
# Installs what is missing, builds zevFIT and the command zvm, and opens zevFIT. "./run.sh tour" plays a session on it instead,
# leaves its files and a picture of each window in build/tour, and fails where they are not as kept. "./run.sh zvm ..."
# builds the command alone, with the program that draws for it, and runs it in the folder where you are.
set -euo pipefail

root=$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")
packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libqt6svg6 fonts-liberation libcli11-dev
  nlohmann-json3-dev)
case ${1:-} in
  zvm)
    options=()
    targets=(zvm zvm-plot)
    ! command -v gdal-config >/dev/null || targets+=(zvm-ogr)
    command=("$root/build/release/zvm" "${@:2}")
    ;;
  "")
    options=()
    targets=(zevfit zvm zvm-plot)
    command=("$root/build/release/zevfit")
    ;;
  tour)
    options=(-DZEVFIT_TESTS=ON)
    targets=(zevfit_tour)
    command=("$root/build/release/tests/zevfit_tour" "$root/build/tour")
    packages+=(libgtest-dev poppler-utils)
    ;;
  *)
    echo "usage: $0 [tour | zvm ...]" >&2
    exit 2
    ;;
esac

virtual=()
if [ "${1:-}" = zvm ]; then
  : # It shows nothing.
elif [ -n "${DISPLAY:-}" ]; then
  : # The X display is what Qt takes.
elif [ -n "${WAYLAND_DISPLAY:-}" ]; then
  packages+=(qt6-wayland)
else
  packages+=(xvfb xauth)
  virtual=(xvfb-run -a)
fi
"$root/.ci/install" "${packages[@]}" >&2

# The presets are found from the folder that holds them. A build folder that was copied from
# elsewhere can't be configured again and is made afresh.
configure() {
  (cd -- "$root" && cmake "$@" --preset release "${options[@]}")
}
configure >/dev/null 2>&1 || configure --fresh >&2
cmake --build "$root/build/release" --target "${targets[@]}" >&2

[ ${#virtual[@]} -eq 0 ] || echo "There is no display: zevFIT starts on a virtual one."
exec "${virtual[@]}" "${command[@]}"
