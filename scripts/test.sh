#!/usr/bin/env bash
# Builds everything with warnings as errors, runs every test under Wine, then fuzzes each pure
# parser for 20 seconds; ends with one line "N passed, N failed" over the ctest tests and the
# fuzz targets together, and fails when either part did.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${WBS_BUILD_DIR:-$root/build}
WBS_WARNINGS_AS_ERRORS=ON "$root/scripts/setup.sh" || exit 1

# ctest's own summary, "N% tests passed, F tests failed out of T", gives its counts; a ctest that
# failed without naming a failed test counts as one more failure.
(cd "$build" && ctest --output-on-failure -O "$build/ctest.log")
ctest_status=$?
read -r ctest_failed ctest_total < <(sed -n 's/.* \([0-9]*\) tests failed out of \([0-9]*\).*/\1 \2/p' "$build/ctest.log" | tail -n 1)
if [ -z "${ctest_total:-}" ] || { [ "$ctest_status" -ne 0 ] && [ "$ctest_failed" -eq 0 ]; }; then
  ctest_failed=1 ctest_total=$((${ctest_total:-0} + 1))
fi

WBS_BUILD_DIR=$build bash "$root/scripts/fuzz.sh" 20 | tee "$build/fuzz.log"
fuzz_status=${PIPESTATUS[0]}
read -r fuzz_passed fuzz_failed < <(sed -n 's/^\([0-9]*\) passed, \([0-9]*\) failed$/\1 \2/p' "$build/fuzz.log" | tail -n 1)
[ -n "${fuzz_failed:-}" ] || { fuzz_passed=0 fuzz_failed=1; }

echo "$((ctest_total - ctest_failed + fuzz_passed)) passed, $((ctest_failed + fuzz_failed)) failed"
[ "$ctest_status" -eq 0 ] && [ "$fuzz_status" -eq 0 ]
