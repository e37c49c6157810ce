#!/usr/bin/env bash
# usage: consumer.sh [--project FOLDER] BUILD_FOLDER CMAKE_ARGUMENT...
#
# Configures a consumer project (default: consumer) from scratch, builds it and runs its program.
# The arguments say where ORVALIX is: -DCMAKE_PREFIX_PATH for an installed one, -DORVALIX_SOURCE for a
# subproject.
set -euo pipefail

project=consumer
if [[ $1 == --project ]]; then
  project=$2
  shift 2
fi
build=$1
shift
consumer=$(cd "$(dirname "$0")" && pwd)/$project

rm -f "$build/CMakeCache.txt"
cmake -S "$consumer" -B "$build" "$@"
cmake --build "$build"
"$build/consumer"
