#!/usr/bin/env bash
# usage: own_pixels.sh PROGRAM
#
# The program writes a picture of 640 x 480 with blue bars, white ground and dark lines.
set -euo pipefail
export LC_ALL=C

picture=$(mktemp)
trap 'rm -f "$picture"' EXIT
"$1" >"$picture"
header=$(head -c 15 "$picture" | tr '\n' ' ')
[[ $header == "P6 640 480 255 " ]] || {
  echo "not the picture: $header"
  exit 1
}
[[ $(stat -c %s "$picture") -eq $((15 + 640 * 480 * 3)) ]]
colors=$(tail -c +16 "$picture" | od -An -v -tx1 -w3 | sort | uniq -c | sort -rn | wc -l)
((colors > 4)) || {
  echo "a picture of $colors colours is no chart"
  exit 1
}
