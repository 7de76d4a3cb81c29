#!/usr/bin/env bash
# The main job: wbs.exe driving real browser windows under Wine. Starts Wine's own Internet
# Explorer and the fixture browser playing Firefox, calls the exported commands through wbs, and
# shows which driver served each command and what the browser received.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${WBS_BUILD_DIR:-$root/build}
"$root/scripts/setup.sh" >/dev/null
export WBS_WINEPREFIX="$build/wineprefix" WINEPREFIX="$build/wineprefix" WINEDEBUG=-all
run() { "$root/cmake/wine-run.sh" "$@"; }
wineserver -p 2>/dev/null || true  # already running is fine
trap 'wineserver -k 2>/dev/null || true' EXIT

demo=$build/demo
rm -rf "$demo" && mkdir -p "$demo"
cp "$build/bin/stubbrowser.exe" "$demo/firefox.exe"
cp "$build/bin/stubbrowser.exe" "$demo/hh.exe"
winpath() { run winepath -w "$1" 2>/dev/null | tr -d '\r'; }
wbs() {
  echo "\$ wbs $*"
  set +e
  run "$build/bin/wbs.exe" "$@" | tr -d '\r' | sed 's/^/  /'
  echo "  (exit ${PIPESTATUS[0]})"
  set -e
}
window_of() { awk '$1=="ready" {print "0x" $3; exit}' "$1"; }
wait_for() { for _ in $(seq 100); do [ -s "$1" ] && grep -q "$2" "$1" && return 0; sleep 0.1; done; return 1; }

echo "== Wine's own Internet Explorer"
run 'C:\Program Files\Internet Explorer\iexplore.exe' about:blank &
for _ in $(seq 100); do run "$build/bin/wbs.exe" which | grep -q IEFrame && break; sleep 0.1; done
wbs which
ie=$(run "$build/bin/wbs.exe" which | tr -d '\r' | sed -n 's/^window: \(0x[0-9a-f]*\).*/\1/p')
wbs --window "$ie" back
wbs refresh
wbs favorites

echo
echo "== Internet Explorer's favorites and typed addresses (written into the demo prefix)"
favorites=$(ls -d "$WINEPREFIX"/drive_c/users/*/Favorites 2>/dev/null | grep -v /Public/ | head -1)
mkdir -p "$favorites/News/Empty"
printf '[InternetShortcut]\r\nURL=http://news.example.invalid/\r\n' >"$favorites/News/Daily.url"
printf '[InternetShortcut]\r\nURL=http://home.example.invalid/\r\n' >"$favorites/Home page.url"
typed='HKCU\Software\Microsoft\Internet Explorer\TypedURLs'
run reg add "$typed" /v url1 /d http://typed.example.invalid/ /f >/dev/null 2>&1
run reg add "$typed" /v url2 /d http://other.example.invalid/ /f >/dev/null 2>&1
wbs list-favorites --browser ie --tree
wbs list-history --browser ie

echo
echo "== The fixture browser playing Firefox (it logs what it receives)"
run "$demo/firefox.exe" --window MozillaUIWindowClass "Mozilla Firefox" --log "$(winpath "$demo/firefox.log")" &
wait_for "$demo/firefox.log" ready || { echo "the fixture did not start"; exit 1; }
hwnd=$(window_of "$demo/firefox.log")
wbs which
wbs --window "$hwnd" back
wbs --window "$hwnd" forward
wbs --window "$hwnd" refresh
wbs --window "$hwnd" home
echo "-- what firefox.exe received:"
grep -E '^(appcommand|keydown|keyup|syskeydown|syskeyup)' "$demo/firefox.log" | sed 's/^/  /' || true

echo
echo "== Firefox's bookmarks and typed addresses (a profile written into the demo prefix)"
profile=$(ls -d "$WINEPREFIX"/drive_c/users/*/AppData/Roaming 2>/dev/null | grep -v /Public/ | head -1)/Mozilla/Firefox/Profiles/demo.default
mkdir -p "$profile"
cat >"$profile/bookmarks.html" <<'HTML'
<!DOCTYPE NETSCAPE-Bookmark-file-1>
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=UTF-8">
<TITLE>Bookmarks</TITLE>
<H1>Bookmarks Menu</H1>
<DL><p>
    <DT><H3 ADD_DATE="1200000000" LAST_MODIFIED="1200000001">Cafés &amp; more</H3>
    <DL><p>
        <DT><A HREF="http://cafe.example.invalid/" ADD_DATE="1200000002">Corner café</A>
    </DL><p>
    <DT><A HREF="http://news.example.invalid/" SHORTCUTURL="news">Daily news</A>
    <DD>Read every morning
    <HR>
</DL><p>
HTML
printf '<?xml version="1.0"?>\n<RDF:RDF>\n  <RDF:Seq RDF:about="urlbar-history">\n    <RDF:li>http://typed.example.invalid/</RDF:li>\n  </RDF:Seq>\n</RDF:RDF>\n' >"$profile/localstore.rdf"
wbs list-favorites --browser firefox --tree
wbs list-history --browser firefox

echo
echo "== The fixture browser playing the HTML Help viewer"
run "$demo/hh.exe" --window HH\ Parent "Help" --appcommand unhandled --log "$(winpath "$demo/hh.log")" &
wait_for "$demo/hh.log" ready || { echo "the fixture did not start"; exit 1; }
hwnd=$(window_of "$demo/hh.log")
wbs --window "$hwnd" refresh
wbs --window "$hwnd" home
echo "-- what hh.exe received:"
grep -E '^appcommand' "$demo/hh.log" | sed 's/^/  /' || true

echo
echo "== Bad usage"
wbs go
