#!/usr/bin/env bash
# Installs the build tree into a temporary prefix, then builds and runs a user's program against it:
# with the CMake package and with pkg-config.
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

cmake --install "$build_dir" --prefix "$work/prefix" > "$work/install.log"

cmake -S "$source_dir" -B "$work/build" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_CXX_FLAGS="${flags[*]-}" -DCMAKE_PREFIX_PATH="$work/prefix" > "$work/configure.log"
cmake --build "$work/build" > "$work/build.log" || { cat "$work/build.log" >&2; exit 1; }
check "CMake package" "$("$work/build/consumer")"

pc_dir=$(dirname "$(find "$work/prefix" -name qvxml.pc)")
export PKG_CONFIG_PATH=$pc_dir
# The install step moved the prefix, as a package build does.
read -ra pc_flags <<< "$(pkg-config --define-variable=prefix="$work/prefix" \
  --define-variable=libdir="$(dirname "$pc_dir")" \
  --define-variable=includedir="$work/prefix/include" --cflags --libs qvxml)"
"$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror ${flags[@]+"${flags[@]}"} \
  "$source_dir/main.cpp" -o "$work/consumer" "${pc_flags[@]}"
check "pkg-config" "$(LD_LIBRARY_PATH=$(dirname "$pc_dir") "$work/consumer")"

soname=$(readelf -d "$(dirname "$pc_dir")/libqvxml.so" | sed -n 's/.*soname: \[\(.*\)\]/\1/p')
[ "$soname" = "libqvxml.so.16" ] || { echo "soname is '$soname'" >&2; exit 1; }
