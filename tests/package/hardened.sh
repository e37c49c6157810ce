#!/usr/bin/env bash
# usage: hardened.sh [--checked-buffers] [--program] FILE
#
# Fails with a line for each way in which a shared library or, with --program, a program is easier to
# attack than it has to be. With --checked-buffers it has to call functions of the C library that
# check their buffers.
set -euo pipefail
export LC_ALL=C

buffers=no
program=no
while [[ $1 == --* ]]; do
  case $1 in
    --checked-buffers) buffers=yes ;;
    --program) program=yes ;;
  esac
  shift
done
file=$1

header=$(readelf -hW "$file")
segments=$(readelf -lW "$file")
dynamic=$(readelf -dW "$file")
symbols=$(readelf --dyn-syms -W "$file")

status=0
# expect yes|no TEXT PATTERN MESSAGE: fails unless the text has the pattern, or hasn't
expect() {
  local found=no
  if grep -qE -e "$3" <<<"$2"; then found=yes; fi
  if [[ $found != "$1" ]]; then
    echo "$4"
    status=1
  fi
}

expect yes "$header" 'Type: *DYN ' "its addresses are the same in every run"
expect no "$dynamic" 'TEXTREL' "code is changed when it is loaded"
expect yes "$segments" 'GNU_RELRO' "tables of the linker stay writable"
expect yes "$dynamic" '\(FLAGS\).*BIND_NOW|\(FLAGS_1\).* NOW' "functions are looked up when they are called first"
expect yes "$segments" 'GNU_STACK.* RW ' "the stack can be executed"
expect no "$dynamic" '\((RPATH|RUNPATH)\).*\[/' "libraries are looked for in a folder of the machine that built it"
expect yes "$symbols" '__stack_chk_fail' "stacks are not watched"
if [[ $buffers == yes ]]; then
  expect yes "$symbols" '_chk@' "buffers are not watched"
fi
if [[ $program == yes ]]; then
  expect yes "$dynamic" '\(FLAGS_1\).* PIE' "it is no program that can lie anywhere"
fi
exit $status
