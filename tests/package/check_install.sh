#!/usr/bin/env bash
# Installs the build into a temporary prefix, moves the installed tree, and builds the C example
# against it with CMake's find_package and with pkg-config; both must list the sample printer.
# Usage: check_install.sh BUILD_DIR SOURCE_DIR
set -uo pipefail
build=$1 src=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
store=$src/samples/sample-printer.reg
. "$(dirname "$0")/../check.sh"

cmake --install "$build" --prefix "$work/installed" >/dev/null || exit 1
mv "$work/installed" "$work/moved"  # the package files hold no absolute paths
prefix=$work/moved
check "installed hmitool finds its libraries" 0 '^hmitool [0-9]+\.[0-9]+\.[0-9]+$' "$prefix/bin/hmitool" --version
check "no RUNPATH into the build tree" 1 '' sh -c "readelf -d '$prefix'/lib/lib*.so.* '$prefix/bin/hmitool' | grep -F '$build'"

check "find_package configures" 0 '' cmake -S "$src/examples" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix"
check "find_package builds" 0 '' cmake --build "$work/cmake"
check "an incompatible major version is refused by CMake" 1 'not compatible|version' \
    cmake -S "$src/examples" -B "$work/major" -DCMAKE_PREFIX_PATH="$prefix" -DXRVHMI_WANTED=1.0
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
check "pkg-config builds" 0 '' sh -c "cc -std=c11 -o '$work/pc' '$src/examples/list-media.c' \$(pkg-config --cflags --libs xrvhmi)"

for program in "$work/cmake/list-media" "$work/pc"; do
    run() { LD_LIBRARY_PATH=$prefix/lib "$program" "$@"; }
    check "$program: names in German" 0 '^PhotoGlossyPro	Fotopapier' run "$store" de
    check "$program: one medium's options" 0 '^      photo  qualities: [1-5]' run "$store" de PhotoGlossyPro
    check "$program: a medium without a French name" 1 "the medium '[A-Za-z]+' has no name in 'fr'" run "$store" fr
    check "$program: a printer that cannot be opened" 2 "cannot open the printer '$work/none.reg'" run "$work/none.reg"
done

summary
