#!/usr/bin/env bash
# usage: pkg_config.sh [--package NAME] [--static] SOURCE PREFIX WORK_FOLDER COMPILER
#                      [COMPILER_ARGUMENT...]
#
# Compiles the program SOURCE with the ORVALIX installed under PREFIX, as pkg-config says of a package
# (default: orvalix), and runs it in WORK_FOLDER. Of a Markdown file, the program is the first block
# of C++.
set -euo pipefail

package=orvalix
options=(--cflags --libs)
while [[ $1 == --* ]]; do
  case $1 in
    --package)
      package=$2
      shift
      ;;
    --static) options+=(--static) ;;
  esac
  shift
done
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

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name "$package.pc")")
export PKG_CONFIG_PATH
read -ra flags < <(pkg-config "${options[@]}" "$package")
libdir=$(pkg-config --variable=libdir "$package")
"$compiler" -std=c++20 "$@" "$source" -o "$work/program" "${flags[@]}" "-Wl,-rpath,$libdir"

cd "$work"
./program
