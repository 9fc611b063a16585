// Windows types with their Windows widths (LP64 Linux: long is 64 bits, wchar_t 32 bits).
#ifndef HMI_POSIX_TYPES_H
#define HMI_POSIX_TYPES_H

#include <cstddef>
#include <cstdint>
#include "xrvhmi.h"  // WCHAR, BOOL, DWORD, HANDLE, HINSTANCE, LPVOID

typedef int32_t LONG;
typedef uint32_t ULONG;
typedef int32_t HRESULT;
typedef uint8_t BYTE;
typedef BYTE* LPBYTE;
typedef DWORD* LPDWORD;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
typedef void* HMODULE;

#define TRUE 1
#define FALSE 0

#define HMI_W_(s) u##s
#define HMI_W(s) HMI_W_(s)

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define E_FAIL ((HRESULT)0x80004005)
#define E_NOTIMPL ((HRESULT)0x80004001)
#define E_NOINTERFACE ((HRESULT)0x80004002)
#define E_POINTER ((HRESULT)0x80004003)
#define E_OUTOFMEMORY ((HRESULT)0x8007000E)
#define E_INVALIDARG ((HRESULT)0x80070057)
#define E_UNEXPECTED ((HRESULT)0x8000FFFF)
#define RPC_E_CHANGED_MODE ((HRESULT)0x80010106)
#define REGDB_E_CLASSNOTREG ((HRESULT)0x80040154)
#define CLASS_E_NOAGGREGATION ((HRESULT)0x80040110)
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)

#define ERROR_SUCCESS 0L
#define ERROR_FILE_NOT_FOUND 2L
#define ERROR_ACCESS_DENIED 5L
#define ERROR_INVALID_HANDLE 6L
#define ERROR_NOT_ENOUGH_MEMORY 8L
#define ERROR_INVALID_DATA 13L
#define ERROR_INVALID_PARAMETER 87L
#define ERROR_MORE_DATA 234L

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_MULTI_SZ 7
#define REG_QWORD 11

#endif
