#!/usr/bin/env bash
# Fuzzes the pure parsers natively: one libFuzzer target per parser (tests/fuzz/<target>.dict names
# them), built with clang-14 and the address and undefined-behaviour sanitizers into
# $WBS_BUILD_DIR/fuzz, each run for the given seconds (20 by default) from a fresh copy of its seeds,
# two at a time. Crashes, leaks and slow inputs are kept under fuzz/findings/<target>. Ends with
# "N passed, N failed" and fails on any finding.
# Usage: scripts/fuzz.sh [seconds-per-target] [target...]
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
out=${WBS_BUILD_DIR:-$root/build}/fuzz
seconds=${1:-20}
shift $(($# > 0 ? 1 : 0))
targets=("$@")
[ ${#targets[@]} -gt 0 ] || for dict in "$root"/tests/fuzz/*.dict; do targets+=("$(basename "$dict" .dict)"); done

missing=$(for p in clang-14 libclang-rt-14-dev; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || echo "$p"; done)
if [ -n "$missing" ]; then
  sudo=$([ "$(id -u)" -eq 0 ] || echo sudo)
  echo "Installing:" $missing
  $sudo apt-get update -qq && DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends $missing >/dev/null || exit 1
fi

# At most two jobs at a time on the machine's two cores.
throttle() { while [ "$(jobs -rp | wc -l)" -ge 2 ]; do wait -n; done; }
cxx=(timeout 300 clang++-14)
command -v ccache >/dev/null && cxx=(timeout 300 ccache clang++-14)
flags=(-std=c++17 -g -O1 -fno-sanitize-recover=all -D_GLIBCXX_ASSERTIONS -I"$root")
rm -rf "$out/obj" && mkdir -p "$out/obj" || exit 1
for parser in favorites/BookmarkLine favorites/TextCuts history/ElementText browsers/WindowInfoReply tovutil/KeyNotation \
              commands/OpenCommandCut favorites/HotlistRecord favorites/AOLFavoritesRecord; do
  throttle
  "${cxx[@]}" "${flags[@]}" -fsanitize=fuzzer-no-link,address,undefined -c "$root/$parser.cpp" -o "$out/obj/${parser##*/}.o" &
done
wait
for target in "${targets[@]}"; do
  rm -f "$out/$target"
  throttle
  "${cxx[@]}" "${flags[@]}" -fsanitize=fuzzer,address,undefined -DWBS_FUZZ_TARGET="Fuzz$target" \
    "$root/tests/fuzz/ParserTargets.cpp" "$out"/obj/*.o -o "$out/$target" &
done
wait

# One target from a fresh copy of its seeds; its line of the summary goes to <target>.result.
run() {
  local target=$1 work=$out/work/$1 log=$out/$1.log rc runs rate
  rm -rf "$work" && mkdir -p "$work" "$out/findings/$target" && cp "$root/tests/fuzz/corpus/$target"/* "$work/" &&
    timeout $((seconds + 120)) "$out/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
      -dict="$root/tests/fuzz/$target.dict" -artifact_prefix="$out/findings/$target/" -print_final_stats=1 \
      "$work" </dev/null >"$log" 2>&1
  rc=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: //p' "$log")
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  if [ $rc -eq 0 ]; then
    echo "$target: passed, $runs executions ($rate/s), $(grep -o 'cov: .*corp: [^ ]*' "$log" | tail -n 1)"
  else
    echo "$target: FAILED (status $rc), ${runs:-no} executions, log $log"
    grep -E '^(==[0-9]+== ?ERROR|SUMMARY|.*Test unit written)' "$log"
  fi >"$out/$target.result"
}
for target in "${targets[@]}"; do
  echo "$target: FAILED, not built" >"$out/$target.result"
  [ ! -x "$out/$target" ] || { throttle; run "$target" & }
done
wait

passed=0 failed=0
for target in "${targets[@]}"; do
  cat "$out/$target.result"
  if grep -q "^$target: passed" "$out/$target.result"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
