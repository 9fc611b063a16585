#include <cstring>
#include "posix/com/allocation.h"
#include "posix/com/com.h"
#include "posix/testhooks.h"

// Windows layout: the byte length sits in the four bytes before the first character.
namespace {
// Per thread: a parse makes thousands of BSTRs, and the tests that count them run on one thread.
thread_local long liveBstrs = 0;
constexpr uint32_t kMaxLength = (UINT32_MAX - sizeof(uint32_t) - sizeof(WCHAR)) / sizeof(WCHAR);

uint32_t* Header(BSTR text) { return reinterpret_cast<uint32_t*>(text) - 1; }
}  // namespace

BSTR HMIBstrWithRoom(uint32_t length) {
    if (length > kMaxLength) return nullptr;
    auto* header = static_cast<uint32_t*>(HMIComAlloc(sizeof(uint32_t) + (length + 1u) * sizeof(WCHAR)));
    if (!header) return nullptr;
    *header = length * sizeof(WCHAR);
    BSTR result = reinterpret_cast<BSTR>(header + 1);
    result[length] = 0;
    ++liveBstrs;
    return result;
}

void HMIBstrCut(BSTR text, uint32_t length) {
    if (length >= SysStringLen(text)) return;
    *Header(text) = length * sizeof(WCHAR);
    text[length] = 0;
}

BSTR SysAllocStringLen(const WCHAR* text, uint32_t length) {
    BSTR result = HMIBstrWithRoom(length);
    if (!result) return nullptr;
    if (text) std::memcpy(result, text, length * sizeof(WCHAR));
    else std::memset(result, 0, length * sizeof(WCHAR));
    return result;
}

BSTR SysAllocString(const WCHAR* text) {
    if (!text) return nullptr;
    uint32_t length = 0;
    while (text[length]) ++length;
    return SysAllocStringLen(text, length);
}

void SysFreeString(BSTR text) {
    if (!text) return;
    --liveBstrs;
    HMIComFree(Header(text));
}

uint32_t SysStringLen(BSTR text) { return text ? *Header(text) / sizeof(WCHAR) : 0; }

long HMITestLiveBstrs() { return liveBstrs; }
