#!/usr/bin/env bash
# Checks the built DLL: every exported command and factory-list member is exported by its C++
# name and the C interface by its C names, the version resource carries the project's version,
# it imports nothing but Windows system DLLs, and a Release build is at most 1 MB.
# Usage: check-dll.sh <dll> <project version> <build type>
set -u
dll=$1 version=$2 config=${3:-}
objdump=${OBJDUMP:-x86_64-w64-mingw32-objdump}
dump=$("$objdump" -p "$dll") || { echo "cannot read $dll"; exit 1; }
failed=0
expect_export() {
  if ! grep -qE "\] $1\$" <<<"$dump"; then echo "missing export: $1"; failed=1; fi
}
for name in \
  _Z11BrowserBackP9IEventMgrP6HWND__ _Z14BrowserForwardP9IEventMgrP6HWND__ _Z14BrowserRefreshP6HWND__ \
  _Z13BrowserSearchv _Z20BrowserShowFavoritesv _Z15GoToBrowserHomeP6HWND__ \
  _Z14GoToWebAddressRK7CStdStrbP8ITrigger _Z7GotoURLRK7CStdStri \
  _ZN22cWebBrowserFactoryListC1Ev _ZN22cWebBrowserFactoryListD1Ev _ZN22cWebBrowserFactoryListaSERKS_ \
  _ZN22cWebBrowserFactoryList8InstanceEv _ZN22cWebBrowserFactoryList11InstantiateEv \
  _ZN22cWebBrowserFactoryList10pInstance_E _ZNK22cWebBrowserFactoryList11GetBrowsersB5cxx11Ev \
  _ZN22cWebBrowserFactoryList23GetForegroundWebBrowserERK7CStdStrP6HWND__ \
  _ZN22cWebBrowserFactoryList20GetDefaultWebBrowserEv \
  _ZNK22cWebBrowserFactoryList22FindDefaultBrowserPathER7CStdStr \
  wbs_version wbs_browser_back wbs_browser_forward wbs_browser_refresh wbs_browser_search \
  wbs_browser_show_favorites wbs_go_to_browser_home wbs_go_to_web_address wbs_goto_url \
  wbs_foreground_driver wbs_default_driver wbs_current_page wbs_family_favorites wbs_family_history \
  wbs_foreground_favorites wbs_foreground_history wbs_default_favorites wbs_default_history; do
  expect_export "$name"
done
system='^(KERNEL32|USER32|ADVAPI32|SHELL32|OLE32|OLEAUT32|GDI32|VERSION|msvcrt|ntdll|SHLWAPI|COMCTL32)\.dll$'
while read -r imported; do
  if ! grep -qiE "$system" <<<"$imported"; then echo "imports a non-system DLL: $imported"; failed=1; fi
done < <(sed -n 's/^\s*DLL Name: //p' <<<"$dump")
# The version resource: its fixed part (signature, structure version, file version) and its text.
IFS=. read -r major minor patch <<<"$version"
le32() { printf '%02x%02x%02x%02x' $(($1 & 255)) $(($1 >> 8 & 255)) $(($1 >> 16 & 255)) $(($1 >> 24 & 255)); }
bytes=$(od -An -tx1 -v "$dll" | tr -d ' \n')
if ! grep -q "bd04effe00000100$(le32 $((major << 16 | minor)))$(le32 $((patch << 16)))" <<<"$bytes"; then
  echo "no version resource with file version $version"; failed=1
fi
text=$(printf '%s.0' "$version" | od -An -tx1 -v | tr -d ' \n' | sed 's/../&00/g')
if ! grep -q "${text}0000" <<<"$bytes"; then echo "no version text $version.0"; failed=1; fi
size=$(stat -c %s "$dll")
echo "$dll: $size bytes ($config)"
if [ "$config" = Release ]; then
  [ "$size" -le 1048576 ] || { echo "a Release DLL above 1 MB"; failed=1; }
  ! "$objdump" -f "$dll" | grep -q HAS_SYMS || { echo "a Release DLL with symbols"; failed=1; }
fi
[ $failed -eq 0 ] && echo "DLL exports and imports as expected"
exit $failed
