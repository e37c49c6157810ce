#!/usr/bin/env bash
# usage: expect_failure.sh EXPECTED COMMAND...
#
# Passes when the command fails and its output, sorted, is exactly the text in the file EXPECTED.
set -euo pipefail
export LC_ALL=C

expected=$1
shift
if output=$("$@" 2>&1); then
  echo "passed, but should have failed: $*"
  exit 1
fi
diff <(sort "$expected") <(sort <<<"$output")
