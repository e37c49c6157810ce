#!/usr/bin/env bash
# usage: debian.sh BUILD_FOLDER VERSION WORK_FOLDER COMPILER [CMAKE_ARGUMENT...]
#
# Makes the Debian packages of the build, puts them into an empty root and uses them there: a program
# is built against the packages for development and run, and the tools are started. Where there is
# a package for Qt it is tried too.
set -euo pipefail
export LC_ALL=C

build=$1
version=$2
work=$3
compiler=$4
shift 4
here=$(cd "$(dirname "$0")" && pwd)
root=$work/root
packages=$work/packages
rm -rf "$work"
mkdir -p "$root" "$packages" "$work/alone"

fail() {
  echo "debian: $*" >&2
  exit 1
}

# deb NAME: the file of a package
deb() { echo "$packages/$1_${version}_$(dpkg --print-architecture).deb"; }
has() { [[ -f $(deb "$1") ]]; }
field() { dpkg-deb -f "$(deb "$1")" "$2"; }
# Paths in a package, without folders.
files() { dpkg-deb --fsys-tarfile "$(deb "$1")" | tar -tf - | grep -v '/$'; }

# expect_depends NAME PATTERN...
expect_depends() {
  local depends pattern
  depends=$(field "$1" Depends)
  for pattern in "${@:2}"; do
    [[ ", $depends," == *", $pattern"* ]] || fail "$1 doesn't depend on $pattern: $depends"
  done
}

# expect_files NAME PATTERN: every path has the pattern
expect_files() {
  local others
  others=$(files "$1" | grep -vE "$2" || true)
  [[ -z $others ]] || fail "$1 holds:" $others
}

cpack --config "$build/CPackConfig.cmake" -B "$packages"

for package in "$packages"/*.deb; do
  name=$(dpkg-deb -f "$package" Package)
  [[ $(field "$name" Version) == "$version" ]] || fail "version of $name"
  [[ $(field "$name" Description | head -1) == "3D business and scientific charts ("*")" ]] ||
    fail "description of $name"
  grep -qx "./usr/share/doc/$name/copyright" <<<"$(files "$name")" || fail "$name has no copyright"
  dpkg-deb -x "$package" "$work/alone/$name"
done

# The library needs what draws, and nothing of Qt.
expect_depends liborvalix1 libc6 libegl1 libopengl0 libfreetype6 libfontconfig1 libpng16
[[ $(field liborvalix1 Section) == libs ]] || fail "section of liborvalix1"
[[ $(field liborvalix1 Depends) != *qt* ]] || fail "liborvalix1 depends on Qt"
expect_files liborvalix1 '/libORVALIX\.so\.1[.0-9]*$|/copyright$'
expect_depends liborvalix-dev "liborvalix1 (= $version)"
[[ $(field liborvalix-dev Section) == libdevel ]] || fail "section of liborvalix-dev"
[[ $(field liborvalix-dev Depends) != *qt* ]] || fail "liborvalix-dev depends on Qt"
expect_files liborvalix-dev '/include/orvalix/|/libORVALIX\.so$|/cmake/ORVALIX/|/orvalix\.pc$|/copyright$'

# A program with the library alone.
cp -a "$work/alone/liborvalix1/." "$work/alone/liborvalix-dev/." "$root"
"$here/consumer.sh" "$work/consumer" -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_PREFIX_PATH="$root/usr" "$@"
if "$here/consumer.sh" --project consumer_qt "$work/without_qt" -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_PREFIX_PATH="$root/usr" "$@" >"$work/without_qt.txt" 2>&1; then
  fail "the Qt host was found without its package"
fi
grep -q liborvalix-qt-dev "$work/without_qt.txt" || fail "nothing tells which package is missing"

if has liborvalix-qt1; then
  expect_depends liborvalix-qt1 "liborvalix1 (= $version)" libqt6widgets6
  expect_files liborvalix-qt1 '/libORVALIXQt\.so\.1[.0-9]*$|/copyright$'
  expect_depends liborvalix-qt-dev "liborvalix-qt1 (= $version)" "liborvalix-dev (= $version)" \
    qt6-base-dev
  cp -a "$work/alone/liborvalix-qt1/." "$work/alone/liborvalix-qt-dev/." "$root"
  "$here/pkg_config.sh" --package orvalix-qt "$here/consumer_qt/main.cpp" "$root/usr" \
    "$work/consumer_qt" "$compiler"
fi

if has orvalix-tools; then
  expect_depends orvalix-tools "liborvalix1 (= $version)"
  if has liborvalix-qt1; then expect_depends orvalix-tools "liborvalix-qt1 (= $version)"; fi
  cp -a "$work/alone/orvalix-tools/." "$root"
  LD_LIBRARY_PATH=$(dirname "$(find "$root" -name libORVALIX.so.1)")
  export LD_LIBRARY_PATH
  for tool in "$root"/usr/bin/*; do
    name=$(basename "$tool")
    [[ $("$tool" --version) == "$name $version" ]] || fail "$name --version"
  done
fi
echo "debian: $(cd "$packages" && ls -- *.deb | tr '\n' ' ')"
