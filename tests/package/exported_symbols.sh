#!/usr/bin/env bash
# usage: exported_symbols.sh NAMES < listing of `nm -D --defined-only -C`
#
# Compares what a shared library exports with the documented names: classes (their members, vtable
# and type information) and free functions. Prints a line for each difference; the exit status is 1
# when there is any.
set -euo pipefail

awk '
# The documented names.
FNR == NR {
  sub(/#.*/, "")
  if (NF > 0) documented[$1] = 0
  next
}

{
  symbol = $0
  # Address and kind, or the kind alone.
  sub(/^[0-9a-fA-F]* *[A-Za-z] /, "", symbol)
  # The address sanitizer marks each exported variable with one of its own.
  if (symbol ~ /^__odr_asan/) next
  # The undefined-behaviour sanitizer brings type information of the classes of Qt along.
  if (symbol ~ /^typeinfo (name )?for Q[A-Z]/) next
  name = symbol
  # Type information also stands for pointers to a class, which can be thrown.
  if (sub(/^(vtable|VTT|typeinfo|typeinfo name) for /, "", name)) sub(/( const)?\*$/, "", name)
  sub(/^(guard variable for|(non-)?virtual thunk to) /, "", name)
  sub(/\(.*$/, "", name)
  sub(/::.*$/, "", name)
  ++seen
  if (name in documented)
    ++documented[name]
  else {
    print "exported, but not documented: " symbol
    bad = 1
  }
}

END {
  if (seen == 0) {
    print "nothing is exported"
    bad = 1
  }
  for (name in documented)
    if (documented[name] == 0) {
      print "documented, but not exported: " name
      bad = 1
    }
  exit bad
}
' "$1" -
