// Allocation-failure injection: every allocation of a call fails in turn.
// Works on the library's objects linked into the test program (not through the DLL, whose static
// runtime cannot see this program's operator new).
#ifndef HMI_TEST_FAULT_INJECTION_H
#define HMI_TEST_FAULT_INJECTION_H

#include <functional>

namespace hmitest {

// Counts allocations while armed; allocation number failAt (1-based) fails, and with persistent set
// so does every later one. Returns whether a failure was injected since Arm.
void ArmAllocationFailure(long failAt, bool persistent = false);
bool DisarmAllocationFailure();
long AllocationsSinceArm();

// Runs call() with allocation 1, 2, ... failing until a run injects no failure (the last run is the
// fault-free one); check(injected) is called after each run to judge the outcome.
// Returns the number of runs that had a failure injected.
long ForEachAllocationFailure(const std::function<void()>& call, const std::function<void(bool injected)>& check,
                              bool persistent = false);

// Live allocations made through operator new since program start (leak check without sanitizers).
long LiveAllocations();

}  // namespace hmitest

#endif
