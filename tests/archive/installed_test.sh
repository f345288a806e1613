#!/usr/bin/env bash
# Builds the library's own project alone, where nothing of the application's can be found, installs
# it into an empty folder, and builds the example against that, by the CMake package and by the
# pkg-config file.
#
#     installed_test.sh CHECKOUT COMPILER [LAUNCHER]
set -euo pipefail

checkout=$1
compiler=$2
launcher=${3-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
installed=$folder/installed

quietly() {
    "$@" >"$folder/log" 2>&1 || { cat "$folder/log"; exit 1; }
}

quietly cmake -S "$checkout/src/archive" -B "$folder/alone" -G Ninja \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_UNITY_BUILD=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON -DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON
quietly cmake --build "$folder/alone"
# Headers are found without being asked for.
ninja -C "$folder/alone" -t deps >"$folder/headers"
grep -q 'tl/expected.hpp' "$folder/headers"
if grep -iE '/(qt6|Q[A-Z][a-z]+|CLI|sqlite3)([./]|$)' "$folder/headers"; then
    echo "The library is built of what it does not need."
    exit 1
fi
quietly cmake --install "$folder/alone" --prefix "$installed"

library=$(find "$installed" -name 'libpellumar-archive.so.*.*.*')
if readelf -d "$library" | grep -E 'Qt|sqlite'; then
    echo "The library asks for what it does not need."
    exit 1
fi
readelf -d "$library" | grep -q 'SONAME.*libpellumar-archive\.so\.[0-9]'

try() {
    mkdir "$folder/run"
    (cd "$checkout/src/archive/example" && "$1" "$folder/run" main.cpp CMakeLists.txt)
    cmp "$checkout/src/archive/example/main.cpp" "$folder/run/out/main.cpp"
    rm -r "$folder/run"
}

quietly cmake -S "$checkout/src/archive/example" -B "$folder/example" -G Ninja \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$installed"
quietly cmake --build "$folder/example"
try "$folder/example/example"

pc=$(find "$installed" -name pellumar-archive.pc)
export PKG_CONFIG_PATH=${pc%/*}
read -ra flags < <(pkg-config --cflags --libs 'pellumar-archive >= 0.1')
"$compiler" "$checkout/src/archive/example/main.cpp" -o "$folder/by-pkg-config" "${flags[@]}"
LD_LIBRARY_PATH=${library%/*} try "$folder/by-pkg-config"
