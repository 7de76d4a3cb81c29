#!/usr/bin/env bash
# Makes (once) the private Wine prefix used by the tests and the demonstration:
# 64-bit, null graphics driver, no install dialogs. Usage: wine-prefix.sh <prefix-dir>
set -euo pipefail
prefix=$(realpath -m "$1")
stamp="$prefix/.wbs-ready"
[ -f "$stamp" ] && exit 0
rm -rf "$prefix"
here=$(dirname "$(realpath "$0")")
export WBS_WINEPREFIX="$prefix"
"$here/wine-run.sh" wineboot --init >/dev/null 2>&1 || true
"$here/wine-run.sh" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
WINEPREFIX="$prefix" wineserver -w
touch "$stamp"
