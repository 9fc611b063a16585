// The one place that knows which DOM runs underneath the suite.
#include "dom/dom_support.h"

namespace domtest {

#ifdef _WIN32
bool RunsOnWine() {
    HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
}
#else
bool RunsOnWine() { return false; }
#endif

}  // namespace domtest
