#!/usr/bin/env bash
# usage: umbrella_is_complete.sh ROOT COMPILER HEADER...
#
# Fails when a public HEADER isn't reached from orvalix/orvalix.h.
set -euo pipefail

cd "$1"
compiler=$2
shift 2
reached=" $("$compiler" -std=c++20 -I. -MM orvalix/orvalix.h | tr -d '\\\n') "
status=0
for header in "$@"; do
  if [[ $reached != *" $header "* && $reached != *" ./$header "* ]]; then
    echo "orvalix/orvalix.h doesn't reach $header"
    status=1
  fi
done
exit $status
