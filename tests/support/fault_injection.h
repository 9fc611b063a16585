// Allocation-failure injection on the library's objects linked into the test program (the DLL's
// static runtime cannot see this program's operator new).
#ifndef HMI_TEST_FAULT_INJECTION_H
#define HMI_TEST_FAULT_INJECTION_H

#include <functional>

namespace hmitest {

// Allocation number failAt (1-based) after Arm fails, and with persistent set every later one too.
// Disarm answers whether a failure was injected.
void ArmAllocationFailure(long failAt, bool persistent = false);
bool DisarmAllocationFailure();

// Runs call() with allocation 1, 2, ... failing until a run injects no failure (the last run is the
// fault-free one), calling check(injected) after each; returns the number of runs with a failure.
long ForEachAllocationFailure(const std::function<void()>& call, const std::function<void(bool injected)>& check,
                              bool persistent = false);

long LiveAllocations();  // made through operator new and not yet freed

}  // namespace hmitest

#endif
