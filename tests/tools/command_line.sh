#!/usr/bin/env bash
# usage: command_line.sh PROGRAM VERSION
#
# The program answers -h, --help, -v and --version on its standard output, without a display, and
# refuses an unknown option, or too many names, with a message.
set -euo pipefail

program=$1
version=$2
name=$(basename "$program")
unset DISPLAY WAYLAND_DISPLAY
# Where a program has to open windows, it does so in memory.
export QT_QPA_PLATFORM=offscreen

messages=$(mktemp)
trap 'rm -f "$messages"' EXIT

fail() {
  echo "$name: $*" >&2
  exit 1
}

for option in -v --version; do
  [[ $("$program" "$option") == "$name $version" ]] || fail "$option doesn't tell the version"
done
for option in -h --help; do
  help=$("$program" "$option") || fail "$option fails"
  # Qt writes its "Usage:" with a capital letter, and the path.
  grep -qiE "^usage: .*$name" <<<"$help" || fail "$option doesn't tell the usage"
done

# refuses ARGUMENT...: exits with a status that isn't 0, with a message of its own and no output.
refuses() {
  local output message status=0
  output=$("$program" "$@" 2>"$messages") || status=$?
  message=$(<"$messages")
  ((status != 0 && status < 100)) || fail "$* ends with $status"
  [[ -z $output ]] || fail "$* writes $output"
  [[ $message == *"$name"* ]] || fail "$* gives no message: $message"
}
refuses --no-such-option
refuses one two three four
