#!/usr/bin/env bash
# Installs what the build needs on Debian 12 (only what is missing) and configures and builds
# WebBrowserSupport.dll, wbs.exe, the fixture browser and the tests into ./build, with the
# private Wine prefix inside it. Safe to run again.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${WBS_BUILD_DIR:-$root/build}

packages=(cmake make g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev binutils-mingw-w64-x86-64 wine wine64 googletest)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  echo "Installing: ${missing[*]}"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

cmake -S "$root" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-mingw-x86_64.cmake" \
  -DCMAKE_BUILD_TYPE="${WBS_BUILD_TYPE:-Release}" -DWBS_WARNINGS_AS_ERRORS="${WBS_WARNINGS_AS_ERRORS:-OFF}" >/dev/null
cmake --build "$build" -j"$(nproc)" "$@"
