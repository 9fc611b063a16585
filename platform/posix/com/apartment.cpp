#include "posix/com/apartment.h"

#include <atomic>
#include "posix/com/com.h"
#include "posix/testhooks.h"

namespace {
struct Apartment {
    long initCount = 0;
    DWORD model = COINIT_APARTMENTTHREADED;
};
thread_local Apartment apartment;
std::atomic<HRESULT> forcedResult{S_OK};
}  // namespace

void HMITestForceCoInitializeResult(HRESULT hr) { forcedResult = hr; }

bool HMIComInitializedOnThread() { return apartment.initCount > 0; }

HRESULT CoInitializeEx(void*, DWORD coInit) {
    if (HRESULT forced = forcedResult.load(); forced != S_OK) return forced;
    DWORD model = (coInit & COINIT_APARTMENTTHREADED) ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED;
    if (apartment.initCount > 0 && apartment.model != model) return RPC_E_CHANGED_MODE;
    apartment.model = model;
    return apartment.initCount++ == 0 ? S_OK : S_FALSE;
}

HRESULT CoInitialize(void* reserved) { return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED); }

void CoUninitialize() {
    if (apartment.initCount > 0) --apartment.initCount;
}
