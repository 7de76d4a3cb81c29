#!/usr/bin/env bash
# Unpacks Debian's source package of Google Benchmark into <dest>/benchmark (Debian ships the
# library only as a native build, so the benchmarks build it from source with the cross compiler).
# Adds a deb-src entry for Debian's main archive when apt has none. Usage: get-benchmark-source.sh <dest>
set -euo pipefail
dest=$(realpath -m "${1:?usage: get-benchmark-source.sh <dest>}")
[ -f "$dest/benchmark/CMakeLists.txt" ] && exit 0

sudo=""
[ "$(id -u)" -eq 0 ] || sudo=sudo
if ! apt-cache showsrc benchmark >/dev/null 2>&1; then
  $sudo tee /etc/apt/sources.list.d/wbs-debian-src.sources >/dev/null <<'SOURCES'
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SOURCES
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
