#!/usr/bin/env bash
# Makes the packages with cpack and checks what each holds: the Debian packages on Linux, the zip
# (with a stripped DLL carrying its version and a link to its debug file) for Windows.
# Usage: check_archives.sh BUILD_DIR deb|zip
set -uo pipefail
build=$1 kind=$2
cd "$build" || exit 1
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' CMakeCache.txt)
rm -rf packages
cpack >cpack.log 2>&1 || { cat cpack.log; exit 1; }
passed=0 failed=0
holds() {  # archive listing, then the paths it must hold
    local listing=$1 path
    shift
    for path in "$@"; do
        if grep -q -x -E -- "(\./)?$path" <<<"$listing"; then passed=$((passed + 1)); else
            failed=$((failed + 1)); echo "FAILED: no $path in the package"; fi
    done
}
if [ "$kind" = deb ]; then
    list() { dpkg-deb -c packages/"$1"_*.deb | awk '{print $6}'; }
    holds "$(list libxrvhmi0)" usr/lib/libxrvhmi.so.0 usr/lib/libxrvhmi.so.0.1.0 usr/lib/libhmispool.so.0.1.0
    holds "$(list libxrvhmi-dev)" usr/include/xrvhmi.h usr/include/xrvhmi_version.h usr/include/hmispool.h \
        usr/lib/libxrvhmi.so usr/lib/pkgconfig/xrvhmi.pc usr/lib/cmake/XRVHMI/XRVHMIConfig.cmake
    holds "$(list xrvhmi-tools)" usr/bin/hmitool
else
    zip=$(ls "$PWD"/packages/*.zip)
    listing=$(unzip -Z1 "$zip" | sed -E 's|^[^/]+/||')
    mkdir -p packages/unpacked && unzip -q -o "$zip" -d packages/unpacked && cd packages/unpacked/* || exit 1
    holds "$listing" bin/XRVHMI.dll bin/XRVHMI.dll.debug bin/hmitool.exe lib/libXRVHMI.dll.a lib/XRVHMI.lib \
        lib/XRVHMI.def include/xrvhmi.h include/xrvhmi_version.h README.md
    dll=bin/XRVHMI.dll
    sections=$(x86_64-w64-mingw32-objdump -h "$dll")
    holds "$(awk '{print $2}' <<<"$sections")" .gnu_debuglink .rsrc
    holds "$(strings -e l "$dll")" "$version" XRVHMI.dll
    if grep -q debug_info <<<"$sections"; then failed=$((failed + 1)); echo "FAILED: the DLL keeps its debug information"; fi
    holds "$(x86_64-w64-mingw32-objdump -h "$dll.debug" | awk '{print $2}')" .debug_info
    holds "$(unzip -p "$zip" '*/lib/XRVHMI.lib' | strings | sort -u)" HMIOpen XRVHMI.dll
fi
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
