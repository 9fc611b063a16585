#!/usr/bin/env bash
# XRVHMI.dll exports exactly DllMain and the 29 entry points, as its .def lists them, and imports only
# Windows system DLLs.
set -euo pipefail
dll=$1 def=$2
dump=$(x86_64-w64-mingw32-objdump -p "$dll")
full=$(printf '%s\n' DllMain HMIOpen HMIUpdatePrinterHandle HMIClose \
  HMIGetCommonInfo HMIGetCommonInfoFile HMIGetAvailableMedia HMIGetAvailableMediaFile \
  HMIGetMediaInfoHeader HMIGetMediaInfoHeaderFile HMIGetMediaName HMIGetMediaNameFile HMIEnumMediaNamesFile \
  HMIFilterMedia HMIFilterMediaFile HMICloseMediaFile HMIGetMediaInfo HMIGetMediaInfoDirect \
  HMIGetAvailableColorMode HMIFilterColorMode HMIFilterColorModeDirect \
  HMIGetAvailableBorderless HMIFilterBorderless HMIFilterBorderlessDirect \
  HMIGetAvailablePrintPurpose HMIFilterPrintPurpose HMIFilterPrintPurposeDirect HMIGetPrintPurposeInfo \
  HMIGetAvailablePrintQuality HMIGetPrintQualityInfo | sort)
want=$(sed -n '/^EXPORTS/,$p' "$def" | tail -n +2 | awk 'NF {print $1}' | sort)
if [ "$full" != "$want" ]; then
  echo "$def differs from the full export list:"; diff <(echo "$full") <(echo "$want") || true; exit 1
fi
have=$(printf '%s\n' "$dump" | awk '/\[Ordinal\/Name Pointer\] Table/ {t=1; next} t && /^\t\[/ {print $NF; next} t && !/^\t/ {t=0}' | sort)
if [ "$want" != "$have" ]; then
  echo "exports differ from $def:"; diff <(echo "$want") <(echo "$have") || true; exit 1
fi
imports=$(printf '%s\n' "$dump" | awk '/DLL Name:/ {print tolower($3)}' | sort -u)
allowed='^(kernel32|user32|advapi32|ole32|oleaut32|winspool\.drv|msvcrt|ucrtbase|ntdll|api-ms-win-[a-z0-9-]+)\.dll$|^winspool\.drv$'
bad=$(printf '%s\n' "$imports" | grep -v -E "$allowed" || true)
if [ -n "$bad" ]; then echo "non-system imports: $bad"; exit 1; fi
echo "exports: $(echo "$have" | wc -l), imports: $(echo $imports)"
echo "1 passed, 0 failed"
