#!/usr/bin/env bash
# Starts or stops the Wine session that a test run shares: a persistent wineserver for the prefix,
# and the prefix's background programs (services, the desktop) brought up once with their output
# detached, so that no test's output pipe is held open by a program that outlives the test.
# Usage: wine-session.sh start <prefix> <any GUI program of the build> | stop <prefix>
set -u
action=$1
export WBS_WINEPREFIX=$2 WINEPREFIX=$2
here=$(dirname "$(realpath "$0")")
case "$action" in
  start)
    setsid wineserver -p </dev/null >/dev/null 2>&1 &
    "$here/wine-run.sh" "$3" nowindow nolog exit-after 0 </dev/null >/dev/null 2>&1
    exit 0 ;;
  stop)
    wineserver -k 2>/dev/null
    exit 0 ;;
esac
echo "usage: wine-session.sh start <prefix> <program> | stop <prefix>" >&2
exit 2
