#!/usr/bin/env bash
# Checks a built component DLL: its PE machine type, the standard exports, the
# embedded type library and common-controls manifest, and that it imports only
# system DLLs (no MinGW runtime DLL beside it). Prints one "ok - ..." / "FAIL - ..." line per check;
# exits non-zero when one fails.
#   scripts/check-dll.sh build/win64/bin/VarDeskGUI.dll x86-64
#   scripts/check-dll.sh build/win32/bin/VarDeskGUI.dll i386
set -uo pipefail

dll=${1:?usage: check-dll.sh DLL x86-64|i386}
arch=${2:?usage: check-dll.sh DLL x86-64|i386}
case $arch in
  x86-64) triple=x86_64-w64-mingw32 ;;
  i386) triple=i686-w64-mingw32 ;;
  *) echo "check-dll: unknown architecture $arch" >&2; exit 2 ;;
esac
name="$(basename "$dll") ($arch)"
failures=0
ok() { echo "ok - $name: $*"; }
bad() { echo "FAIL - $name: $*"; failures=$((failures + 1)); }

if [[ ! -f $dll ]]; then
  bad "built"
  exit 1
fi

format=$("$triple-objdump" -f "$dll" 2>/dev/null | sed -n 's/.*file format //p')
[[ $format == "pei-$arch" ]] && ok "PE machine type $arch" || bad "PE machine type $arch (found '${format:-nothing}')"

headers=$("$triple-objdump" -p "$dll")
exports=$(awk '/\[Ordinal\/Name Pointer\] Table/{table=1; next} table && /^\t\[/{print $NF; next} table{table=0}' \
  <<<"$headers" | sort -u)
for symbol in DllGetClassObject DllCanUnloadNow DllRegisterServer DllUnregisterServer DllInstall; do
  grep -qx "$symbol" <<<"$exports" && ok "exports $symbol" || bad "exports $symbol"
done

# A type library resource: the resource type name TYPELIB (UTF-16) and the
# library's MSFT signature inside the resource section.
rsrc=$(mktemp)
trap 'rm -f "$rsrc"' EXIT
"$triple-objcopy" -O binary --only-section=.rsrc "$dll" "$rsrc" 2>/dev/null
if LC_ALL=C grep -qaP 'T\x00Y\x00P\x00E\x00L\x00I\x00B\x00' "$rsrc" && LC_ALL=C grep -qa 'MSFT' "$rsrc"; then
  ok "embeds its type library"
else
  bad "embeds its type library"
fi

# The common-controls manifest as resource 2 of type 24 (RT_MANIFEST): its
# assembly name inside the resource section.
if LC_ALL=C grep -qa 'Microsoft.Windows.Common-Controls' "$rsrc"; then
  ok "embeds its common-controls manifest"
else
  bad "embeds its common-controls manifest"
fi

system_dlls='^(kernel32|user32|gdi32|advapi32|ole32|oleaut32|msvcrt|comctl32|comdlg32|shell32|shlwapi|uxtheme|version|ucrtbase)\.dll$'
imports=$(sed -n 's/^\s*DLL Name: //p' <<<"$headers" | tr 'A-Z' 'a-z' | sort -u)
foreign=$(grep -Ev "$system_dlls" <<<"$imports" | tr '\n' ' ')
if [[ -z $imports ]]; then
  bad "imports only system DLLs (no import table found)"
elif [[ -z $foreign ]]; then
  ok "imports only system DLLs ($(tr '\n' ' ' <<<"$imports" | sed 's/ $//'))"
else
  bad "imports only system DLLs (also: $foreign)"
fi

exit $((failures > 0))
