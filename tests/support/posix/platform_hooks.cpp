#include "posix/testhooks.h"

namespace hmitest {
void InstallPlatformAllocationHook(bool (*shouldFail)()) { HMITestSetAllocationFailureHook(shouldFail); }
}
