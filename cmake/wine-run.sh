#!/usr/bin/env bash
# Runs a Windows program under Wine in the build's private prefix (never the user's ~/.wine).
# WBS_WINEPREFIX may name the prefix; by default it is ./wineprefix of the current build folder.
set -euo pipefail
: "${WBS_WINEPREFIX:=${WINEPREFIX:-$(pwd)/wineprefix}}"
export WINEPREFIX="$WBS_WINEPREFIX"
export WINEDEBUG="${WINEDEBUG:--all}"
# No Mono or Gecko install dialogs; Internet Explorer still starts without its HTML engine.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
export WINEARCH=win64
WINE=/usr/lib/wine/wine64
[ -x "$WINE" ] || WINE=$(command -v wine64 || command -v wine)
exec "$WINE" "$@"
