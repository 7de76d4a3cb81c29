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

missing=()
for p in clang-14 libclang-rt-14-dev; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  echo "Installing: ${missing[*]}"
  $sudo apt-get update -qq && DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null || exit 1
fi

cxx=(clang++-14)
command -v ccache >/dev/null && cxx=(ccache clang++-14)
flags=(-std=c++17 -g -O1 -fno-sanitize-recover=all -D_GLIBCXX_ASSERTIONS -I"$root")
sanitizers=address,undefined
parsers=(favorites/BookmarkLine favorites/TextCuts history/ElementText browsers/WindowInfoReply tovutil/KeyNotation
         commands/OpenCommandCut favorites/HotlistRecord favorites/AOLFavoritesRecord)
mkdir -p "$out/obj"

# At most two jobs at a time on the machine's two cores.
throttle() { while [ "$(jobs -rp | wc -l)" -ge 2 ]; do wait -n; done; }

for parser in "${parsers[@]}"; do
  rm -f "$out/obj/${parser##*/}.o"
  throttle
  timeout 300 "${cxx[@]}" "${flags[@]}" -fsanitize=fuzzer-no-link,$sanitizers -c "$root/$parser.cpp" -o "$out/obj/${parser##*/}.o" &
done
wait
for target in "${targets[@]}"; do
  rm -f "$out/$target"
  throttle
  timeout 300 "${cxx[@]}" "${flags[@]}" -fsanitize=fuzzer,$sanitizers -DWBS_FUZZ_TARGET="Fuzz$target" \
    "$root/tests/fuzz/ParserTargets.cpp" "$out"/obj/*.o -o "$out/$target" &
done
wait

# One target: a fresh working corpus from its seeds, the findings kept, the status in <target>.rc.
run() {
  local target=$1 work=$out/work/$1
  rm -rf "$work" && mkdir -p "$work" "$out/findings/$target" || return 1
  cp "$root/tests/fuzz/corpus/$target"/* "$work/" || return 1
  timeout $((seconds + 120)) "$out/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -dict="$root/tests/fuzz/$target.dict" -artifact_prefix="$out/findings/$target/" -print_final_stats=1 \
    "$work" </dev/null >"$out/$target.log" 2>&1
}
for target in "${targets[@]}"; do
  rm -f "$out/$target.rc"
  [ -x "$out/$target" ] || { echo "not built" >"$out/$target.log"; echo 1 >"$out/$target.rc"; continue; }
  throttle
  (run "$target"; echo $? >"$out/$target.rc") &
done
wait

passed=0 failed=0
for target in "${targets[@]}"; do
  rc=$(cat "$out/$target.rc" 2>/dev/null || echo 1)
  log=$out/$target.log
  runs=$(sed -n 's/^stat::number_of_executed_units: //p' "$log" 2>/dev/null)
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" 2>/dev/null)
  done_line=$(grep -o 'cov: .*corp: [^ ]*' "$log" 2>/dev/null | tail -n 1)
  if [ "$rc" = 0 ]; then
    passed=$((passed + 1))
    echo "$target: passed, ${runs:-?} executions (${rate:-?}/s), $done_line"
  else
    failed=$((failed + 1))
    echo "$target: FAILED (status $rc), ${runs:-?} executions; log $log"
    grep -E '^(==[0-9]+==ERROR|SUMMARY|artifact_prefix|Test unit written)' "$log" 2>/dev/null | head -n 6
  fi
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
