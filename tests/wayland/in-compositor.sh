#!/usr/bin/env bash
# Runs a command on a Wayland compositor of its own, which has no screen.
set -euo pipefail

folder=$(mktemp -d)
chmod 700 "$folder"
export XDG_RUNTIME_DIR=$folder WAYLAND_DISPLAY=wayland-test QT_QPA_PLATFORM=wayland
# The toolkit asks the seat for its input method, and a compositor without a screen has no seat.
export QT_IM_MODULE=compose
weston --backend=headless-backend.so --no-config --socket="$WAYLAND_DISPLAY" --idle-time=0 \
  --width=1280 --height=1024 >"$folder/log" 2>&1 &
compositor=$!
end() {
  kill "$compositor" 2>/dev/null || true
  wait "$compositor" 2>/dev/null || true
  rm -rf "$folder"
}
trap end EXIT

for ((tries = 0; tries < 100; tries++)); do
  [ ! -S "$folder/$WAYLAND_DISPLAY" ] || break
  if ! kill -0 "$compositor" 2>/dev/null; then break; fi
  sleep 0.1
done
if [ ! -S "$folder/$WAYLAND_DISPLAY" ]; then
  echo "No compositor:" && cat "$folder/log"
  exit 1
fi
"$@"
