#!/usr/bin/env bash
# Unpacks Debian's source package of Google Benchmark into <dest>/benchmark (Debian ships the
# library only as a native build, so the benchmarks build it from source with the cross compiler).
# Adds source entries mirroring the machine's own package entries when apt has none. Usage: get-benchmark-source.sh <dest>
set -euo pipefail
dest=$(realpath -m "${1:?usage: get-benchmark-source.sh <dest>}")
[ -f "$dest/benchmark/CMakeLists.txt" ] && exit 0

sudo=""
[ "$(id -u)" -eq 0 ] || sudo=sudo
if ! apt-cache showsrc benchmark >/dev/null 2>&1; then
  # Source entries mirroring the machine's own binary ones (deb822 files and one-line lists).
  entries=$(mktemp)
  for f in /etc/apt/sources.list.d/*.sources; do
    case "$f" in */wbs-src.sources) continue ;; esac
    [ -f "$f" ] && { sed -e 's/^Types:.*/Types: deb-src/' "$f"; echo; } >>"$entries"
  done
  $sudo cp "$entries" /etc/apt/sources.list.d/wbs-src.sources
  { cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null || true; } |
    { grep -v '^deb-src' || true; } | sed -n 's/^deb /deb-src /p' >"$entries"
  [ -s "$entries" ] && $sudo cp "$entries" /etc/apt/sources.list.d/wbs-src.list
  rm -f "$entries"
  $sudo apt-get update -qq
fi
dpkg-query -W -f='${Status}' dpkg-dev 2>/dev/null | grep -q "install ok installed" ||
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends dpkg-dev >/dev/null

# apt checks the files against the signed archive index; dpkg-source need not check the .dsc again.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$work" && apt-get source --download-only benchmark >/dev/null 2>&1 &&
  dpkg-source -x --skip-debianization benchmark_*.dsc unpacked >/dev/null 2>&1)
mkdir -p "$dest"
rm -rf "$dest/benchmark"
mv "$work/unpacked" "$dest/benchmark"
