#!/usr/bin/env bash
# Installs what is missing, builds zevFIT and opens it.
set -euo pipefail

root=$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")
program=$root/build/release/zevfit

packages=(g++ cmake ninja-build qt6-base-dev libqt6svg6 fonts-liberation)
virtual=()
if [ -n "${DISPLAY:-}" ]; then
  : # The X display is what Qt takes.
elif [ -n "${WAYLAND_DISPLAY:-}" ]; then
  packages+=(qt6-wayland)
else
  packages+=(xvfb xauth)
  virtual=(xvfb-run -a)
fi
"$root/.ci/install" "${packages[@]}"

# The presets are found from the folder that holds them. A build folder that was copied from
# elsewhere can't be configured again and is made afresh.
configure() {
  (cd -- "$root" && cmake "$@" --preset release)
}
configure >/dev/null 2>&1 || configure --fresh
cmake --build "$root/build/release" --target zevfit

[ ${#virtual[@]} -eq 0 ] || echo "There is no display: zevFIT starts on a virtual one."
exec "${virtual[@]}" "$program"
