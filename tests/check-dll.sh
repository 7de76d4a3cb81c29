#!/usr/bin/env bash
# Checks the built DLL: every exported command and factory-list member is exported by its C++
# name, a version resource is present, and it imports nothing but Windows system DLLs.
set -u
dll=$1
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
  _ZNK22cWebBrowserFactoryList22FindDefaultBrowserPathER7CStdStr; do
  expect_export "$name"
done
system='^(KERNEL32|USER32|ADVAPI32|SHELL32|OLE32|OLEAUT32|GDI32|VERSION|msvcrt|ntdll|SHLWAPI|COMCTL32)\.dll$'
while read -r imported; do
  if ! grep -qiE "$system" <<<"$imported"; then echo "imports a non-system DLL: $imported"; failed=1; fi
done < <(sed -n 's/^\s*DLL Name: //p' <<<"$dump")
if ! "$objdump" -h "$dll" | grep -q '\.rsrc'; then echo "no resource section (version resource)"; failed=1; fi
[ $failed -eq 0 ] && echo "DLL exports and imports as expected"
exit $failed
