#!/usr/bin/env bash
# Builds everything with warnings as errors and runs every test under Wine; ends with ctest's summary.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${WBS_BUILD_DIR:-$root/build}
WBS_WARNINGS_AS_ERRORS=ON "$root/scripts/setup.sh"
cd "$build"
ctest --output-on-failure
