#!/usr/bin/env bash
# Installs the build tree into a temporary prefix and moves it, then builds and runs a user's program
# against it: with the CMake package and with pkg-config. Looks at what the library exports, too.
set -euo pipefail

build_dir=$1
source_dir=$(cd "$(dirname "$0")" && pwd)
compiler=$2
shift 2
flags=("$@")  # what the tree itself was built with, such as sanitizers

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
expected="decimal 1.05: The value [128] is to large to fit in a i1"

check() {
  local how=$1 actual=$2
  if [ "$actual" != "$expected" ]; then
    echo "$how: expected '$expected', got '$actual'" >&2
    exit 1
  fi
  echo "$how: $actual"
}

cmake --install "$build_dir" --prefix "$work/installed" > "$work/install.log"
mv "$work/installed" "$work/prefix"

cmake -S "$source_dir" -B "$work/build" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_CXX_FLAGS="${flags[*]-}" -DCMAKE_PREFIX_PATH="$work/prefix" > "$work/configure.log"
cmake --build "$work/build" > "$work/build.log" || { cat "$work/build.log" >&2; exit 1; }
check "CMake package" "$("$work/build/consumer")"

pc_dir=$(dirname "$(find "$work/prefix" -name qvxml.pc)")
export PKG_CONFIG_PATH=$pc_dir
read -ra pc_flags <<< "$(pkg-config --cflags --libs qvxml)"
"$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Wshadow -Werror ${flags[@]+"${flags[@]}"} \
  "$source_dir/main.cpp" -o "$work/consumer" "${pc_flags[@]}"
check "pkg-config" "$(LD_LIBRARY_PATH=$(dirname "$pc_dir") "$work/consumer")"

library=$(dirname "$pc_dir")/libqvxml.so
soname=$(readelf -d "$library" | sed -n 's/.*soname: \[\(.*\)\]/\1/p')
[ "$soname" = "libqvxml.so.16" ] || { echo "soname is '$soname'" >&2; exit 1; }

# Sanitizers add symbols of their own.
strangers=$(nm -DC --defined-only "$library" | cut -d' ' -f3- |
  grep -Ev '(^| )(QvXmlLib16(Data)?::|ConvertUTF|(Unicode|UTF8|UTF16)To|(Is|Does)[A-Za-z]*U)|^__' || true)
[ -z "$strangers" ] || { printf 'exported, but not of the interface:\n%s\n' "$strangers" >&2; exit 1; }
