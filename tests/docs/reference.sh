#!/usr/bin/env bash
# usage: reference.sh SOURCES OUTPUT_FOLDER [HEADER_FOLDER...]
#
# Makes the reference of the sources, or, as their reference is made, that of other headers. Fails
# with a line for each name without a comment and each comment that is wrong, and when no pages come
# of it.
set -euo pipefail

cd "$1"
output=$2
shift 2
rm -rf "$output"
mkdir -p "$output"

{
  cat docs/Doxyfile
  echo "OUTPUT_DIRECTORY = \"$output\""
  if (($# > 0)); then
    printf 'USE_MDFILE_AS_MAINPAGE =\nINPUT ='
    printf ' "%s"' "$@"
  fi
} | doxygen - 2>&1 | sort -u | sed "s|^${1:-$PWD}/||"

if (($# == 0)); then
  # A getter without a comment of its own, and a free function.
  grep -q 'CChartView3D' "$output/reference/classCChartView3D.html"
  grep -q GetBorderEnable "$output/reference/classCChartView3D.html"
  grep -q auxWireSphere "$output/reference/shapes_8h.html"
fi
