#!/usr/bin/env bash
# usage: check_includes.sh ROOT TABLE
#
# Holds the sources under ROOT to the arrows in TABLE:
#   - a folder of orvalix/ includes only the folders that its line names;
#   - public headers include no internal header and none of a platform or toolkit;
#   - programs (tools, examples, bench, hosts) include public headers only, except that a host has
#     internal headers of its own, which its public ones don't include;
#   - conditions on the platform stand only in orvalix/host and in the binding files of a platform.
# Prints one line for each violation; the exit status is 1 when there is any.
set -euo pipefail
export LC_ALL=C

root=$1
table=$(realpath "$2")
cd "$root"

folders=()
for folder in orvalix tools examples bench hosts; do
  [[ -d $folder ]] && folders+=("$folder")
done
mapfile -t files < <(find "${folders[@]}" -type f \( -name '*.h' -o -name '*.cpp' \) | sort)
if ((${#files[@]} == 0)); then
  echo "no sources under $root" >&2
  exit 2
fi

awk '
function violation(text) {
  printf "%s:%d: %s\n", FILENAME, FNR, text
  found = 1
}

# The table.
FNR == NR {
  sub(/#.*/, "")
  if (NF == 0) next
  layer = $1
  sub(/:$/, "", layer)
  known[layer] = 1
  allowed[layer, layer] = 1
  for (i = 2; i <= NF; ++i) allowed[layer, $i] = 1
  next
}

FNR == 1 {
  depth = split(FILENAME, part, "/")
  in_library = part[1] == "orvalix"
  in_layer = in_library && depth > 2
  layer = in_layer ? part[2] : ""
  public_header = in_library && FILENAME ~ /\.h$/ && FILENAME !~ /_internal\.h$/
  # hosts/qt/orvalix/qt/chart_widget.h: what programs include as orvalix/qt/chart_widget.h.
  host_folder = part[1] == "hosts" && depth > 4 ? part[3] "/" part[4] : ""
  host_header = host_folder != "" && FILENAME ~ /\.h$/ && FILENAME !~ /_internal\.h$/
  platform_file = layer == "host" || FILENAME ~ /_(egl|wgl|freetype)\.cpp$/
  if (in_layer && !(layer in known)) violation("folder \"" layer "\" is not in the table")
}

/^[ \t]*#[ \t]*include[ \t]*["<]orvalix\// {
  header = $0
  sub(/^[^"<]*["<]/, "", header)
  sub(/[">].*$/, "", header)
  target_depth = split(header, target, "/")
  if (in_layer && target_depth < 3)
    violation(layer " includes " header)
  else if (in_layer && (layer in known) && !((layer, target[2]) in allowed))
    violation(layer " includes " target[2] " (" header ")")
  if (header ~ /_internal\.h$/) {
    if (public_header) violation("public header includes " header)
    own = host_folder != "" && index(header, host_folder "/") == 1
    if (own && host_header) violation("public header includes " header)
    if (!in_library && !own) violation("program includes " header)
  }
  next
}

public_header && /^[ \t]*#[ \t]*include[ \t]*["<](GL|EGL|X11|freetype2?|fontconfig|Qt[A-Za-z]*)\// {
  violation("public header includes a header of a platform or toolkit")
}

public_header && /^[ \t]*#[ \t]*include[ \t]*["<](ft2build\.h|windows\.h|Q[A-Z][A-Za-z]*>)/ {
  violation("public header includes a header of a platform or toolkit")
}

in_library && !platform_file && /^[ \t]*#[ \t]*(if|ifdef|ifndef|elif)/ &&
    /_WIN32|_WIN64|WIN32|__linux|__unix|__APPLE__|__FreeBSD__|__ANDROID__|_MSC_VER|__MINGW/ {
  violation("condition on the platform")
}

END { exit found }
' "$table" "${files[@]}"
