#!/usr/bin/env bash
# usage: consumer.sh find_package PREFIX BUILD_FOLDER [CMAKE_ARGUMENT...]
#        consumer.sh subdirectory ORVALIX_SOURCE BUILD_FOLDER [CMAKE_ARGUMENT...]
#        consumer.sh pkg_config PREFIX BUILD_FOLDER COMPILER [COMPILER_ARGUMENT...]
#
# Builds the consumer program with ORVALIX in one of the ways that users have, and runs it.
set -euo pipefail

way=$1
orvalix=$2
build=$3
shift 3
consumer=$(cd "$(dirname "$0")" && pwd)/consumer

build_with_cmake() {
  cmake -S "$consumer" -B "$build" "$@"
  cmake --build "$build"
}

case $way in
  find_package)
    rm -rf "$build"
    build_with_cmake "-DCMAKE_PREFIX_PATH=$orvalix" "$@"
    ;;
  subdirectory)
    build_with_cmake "-DORVALIX_SOURCE=$orvalix" "$@"
    ;;
  pkg_config)
    mkdir -p "$build"
    PKG_CONFIG_PATH=$(dirname "$(find "$orvalix" -name orvalix.pc)")
    export PKG_CONFIG_PATH
    read -ra flags < <(pkg-config --cflags --libs orvalix)
    libdir=$(pkg-config --variable=libdir orvalix)
    compiler=$1
    shift
    "$compiler" -std=c++20 "$@" "$consumer/main.cpp" -o "$build/consumer" "${flags[@]}" \
      "-Wl,-rpath,$libdir"
    ;;
  *)
    echo "consumer.sh: unknown way: $way" >&2
    exit 2
    ;;
esac

"$build/consumer"
