#!/usr/bin/env bash
# usage: reuse_object.sh FROM TO COMPILER ARGUMENT...
#
# Stands before the compiler in a build below the folder TO that compiles the same sources as the one
# in FROM: copies the object file from there instead of making it anew. What isn't there, or older
# than its source, is compiled.
set -euo pipefail

from=$1
to=$2
shift 2

object=
source=
dependencies=
arguments=("$@")
for ((i = 0; i + 1 < ${#arguments[@]}; ++i)); do
  case ${arguments[i]} in
    -o) object=${arguments[i + 1]} ;;
    -c) source=${arguments[i + 1]} ;;
    -MF) dependencies=${arguments[i + 1]} ;;
  esac
done

path=$(realpath -m "$object")
made=$from/${path#"$to/"}
if [[ -n $object && $path == "$to/"* && -f $made && $made -nt $source ]]; then
  cp "$made" "$object"
  if [[ -n $dependencies ]]; then : >"$dependencies"; fi
else
  exec "$@"
fi
