#!/usr/bin/env bash
# usage: pkg_config.sh SOURCE PREFIX WORK_FOLDER COMPILER [COMPILER_ARGUMENT...]
#
# Compiles the program SOURCE with the ORVALIX installed under PREFIX, as pkg-config says, and runs
# it in WORK_FOLDER. Of a Markdown file, the program is the first block of C++.
set -euo pipefail

source=$1
prefix=$2
work=$3
compiler=$4
shift 4
mkdir -p "$work"

if [[ $source == *.md ]]; then
  awk '/^```cpp$/ { inside = 1; next } /^```$/ { if (inside) exit } inside' "$source" \
    >"$work/program.cpp"
  source=$work/program.cpp
fi

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orvalix.pc)")
export PKG_CONFIG_PATH
read -ra flags < <(pkg-config --cflags --libs orvalix)
libdir=$(pkg-config --variable=libdir orvalix)
"$compiler" -std=c++20 "$@" "$source" -o "$work/program" "${flags[@]}" "-Wl,-rpath,$libdir"

cd "$work"
./program
