#!/usr/bin/env bash
# usage: with_xvfb.sh PROGRAM [ARGUMENT...]
#
# Runs a program on an X server of its own: 1280 x 1024 pixels, no window manager, on a display that
# nobody uses. Settings that the program stores go to a folder that is deleted afterwards. The exit
# status is the program's, or 77 where there is no Xvfb.
set -euo pipefail

# Listing tests takes no display.
for argument in "$@"; do
  if [[ $argument == --gtest_list_tests* ]]; then exec "$@"; fi
done

if ! command -v Xvfb >/dev/null; then
  echo "skipped: there is no Xvfb (Debian package xvfb)"
  exit 77
fi

folder=$(mktemp -d)
server=
cleanup() {
  if [[ -n $server ]]; then
    kill "$server" 2>/dev/null || true
    wait "$server" 2>/dev/null || true
  fi
  rm -rf "$folder"
}
trap cleanup EXIT

mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 "${ORVALIX_TEST_SCREEN:-1280x1024x24}" -nolisten tcp -noreset \
  3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
server=$!
if ! read -r -t 30 number <"$folder/display"; then
  echo "Xvfb doesn't start:"
  cat "$folder/xvfb.log"
  exit 1
fi

export DISPLAY=:$number QT_QPA_PLATFORM=xcb LIBGL_ALWAYS_SOFTWARE=1
export XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder/runtime XDG_CACHE_HOME=$folder/cache
export QT_LOGGING_RULES="qt.qpa.*=false" NO_AT_BRIDGE=1
unset WAYLAND_DISPLAY QT_SCALE_FACTOR QT_STYLE_OVERRIDE SESSION_MANAGER
mkdir -m 700 "$XDG_RUNTIME_DIR"
"$@"
