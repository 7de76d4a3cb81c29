#!/usr/bin/env bash
# Installs the build into a folder of its own, configures and builds this consumer against that
# tree alone, and runs it from the installed bin/ (beside the installed DLL) under Wine.
# Usage: run-package-test.sh <build folder> <toolchain file>
set -eu
build=$1 toolchain=$2
here=$(cd "$(dirname "$0")" && pwd)
work=$build/package-test
rm -rf "$work"
timeout 120 cmake --install "$build" --prefix "$work/install" >"$work.log" 2>&1 || { cat "$work.log"; exit 1; }
for file in bin/WebBrowserSupport.dll bin/wbs.exe lib/WebBrowserSupport.lib include/webbrowsersupport_c.h \
  include/IEventMgr.h lib/cmake/WebBrowserSupport/WebBrowserSupportConfig.cmake; do
  [ -f "$work/install/$file" ] || { echo "not installed: $file"; exit 1; }
done
timeout 120 cmake -S "$here" -B "$work/build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_PREFIX_PATH="$work/install" >"$work.log" 2>&1 || { cat "$work.log"; exit 1; }
timeout 180 cmake --build "$work/build" >"$work.log" 2>&1 || { cat "$work.log"; exit 1; }
cp "$work/build/consumer.exe" "$work/install/bin/"
status=0
timeout 60 "$here/../../cmake/wine-run.sh" "$work/install/bin/consumer.exe" </dev/null >"$work.log" 2>&1 || status=$?
cat "$work.log"
exit $status
