#!/usr/bin/env bash
# usage: first_chart_page.sh PAGE WORK_FOLDER CMAKE_ARGUMENT...
#
# Does what the page of the first chart tells: takes its two files, builds them, and runs the
# program, which has to leave a picture. ORVALIX is an installed one, which the page names as the
# other way, so that the library isn't built again; the arguments say where it is.
set -euo pipefail

page=$1
work=$2
shift 2
rm -rf "$work"
mkdir -p "$work"

# The first block of a language.
block() {
  awk -v fence="^\`\`\`$1\$" '$0 ~ fence { inside = 1; next } /^```$/ { if (inside) exit } inside' "$page"
}

block cmake |
  sed -e '/^add_subdirectory/d' -e 's/^# or, when it is installed: //' >"$work/CMakeLists.txt"
grep -q '^find_package(ORVALIX' "$work/CMakeLists.txt"
block cpp >"$work/first.cpp"

cd "$work"
cmake -S . -B build "$@"
cmake --build build
build/first
test -s first_chart.png
