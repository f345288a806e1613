#!/usr/bin/env bash
# Installs the library of a build into an empty folder and builds the example against it, by its
# CMake package and by its pkg-config file; and sees that the library's own project asks for nothing
# that it does not need.
#
#     installed_test.sh CHECKOUT BUILD COMPILER
set -euo pipefail

checkout=$1
build=$2
compiler=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
installed=$folder/installed

cmake -S "$checkout/src/archive" -B "$folder/alone" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON -DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON >"$folder/log" || { cat "$folder/log"; exit 1; }

cmake --install "$build" --component archive --prefix "$installed" >/dev/null
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

cmake -S "$checkout/src/archive/example" -B "$folder/example" -G Ninja \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$installed" >/dev/null
cmake --build "$folder/example" >/dev/null
try "$folder/example/example"

pc=$(find "$installed" -name pellumar-archive.pc)
export PKG_CONFIG_PATH=${pc%/*}
library_folder=${library%/*}
read -ra flags < <(pkg-config --define-variable=prefix="$installed" \
    --define-variable=libdir="$library_folder" \
    --define-variable=includedir="$installed/include" --cflags --libs pellumar-archive)
"$compiler" "$checkout/src/archive/example/main.cpp" -o "$folder/by-pkg-config" "${flags[@]}"
LD_LIBRARY_PATH=$library_folder try "$folder/by-pkg-config"
