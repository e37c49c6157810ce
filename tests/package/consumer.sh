#!/usr/bin/env bash
# usage: consumer.sh BUILD_FOLDER CMAKE_ARGUMENT...
#
# Configures the consumer project from scratch, builds it and runs its program. The arguments say
# where ORVALIX is: -DCMAKE_PREFIX_PATH for an installed one, -DORVALIX_SOURCE for a subproject.
set -euo pipefail

build=$1
shift
consumer=$(cd "$(dirname "$0")" && pwd)/consumer

rm -f "$build/CMakeCache.txt"
cmake -S "$consumer" -B "$build" "$@"
cmake --build "$build"
"$build/consumer"
