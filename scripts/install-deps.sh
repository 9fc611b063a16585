#!/usr/bin/env bash
# Installs the Debian packages the build (and the tests) need, when any is missing.
set -euo pipefail
# Usage: install-deps.sh [build|all]: what the Linux build needs, or (default) everything the tests need
# too: GoogleTest, Google Benchmark, Doxygen, the Windows cross toolchain and Wine.
build=(cmake g++ make libxml2-dev pkg-config libcli11-dev nlohmann-json3-dev)
tests=(graphviz googletest libgtest-dev libbenchmark-dev doxygen unzip llvm mingw-w64 g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix
       wine wine64 libcups2-dev cups-client cups-ipp-utils dbus avahi-daemon)
packages=("${build[@]}")
[ "${1:-all}" = build ] || packages+=("${tests[@]}")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo_cmd=()
  [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
fi
