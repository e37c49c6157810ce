#!/usr/bin/env bash
# usage: expect_output.sh EXPECTED PROGRAM [ARGUMENT...]
#
# Runs a program; fails unless it exits with 0 and writes to its standard output what the file holds.
set -euo pipefail

expected=$1
shift
actual=$("$@")
diff -u "$expected" <(printf '%s\n' "$actual")
