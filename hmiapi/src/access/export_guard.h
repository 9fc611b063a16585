// The boundary of every export: nothing thrown inside leaves it, and results are exactly 1 or 0.
#ifndef HMI_EXPORT_GUARD_H
#define HMI_EXPORT_GUARD_H

#include "platform/platform.h"

template <typename R, typename Body>
R HMIGuarded(R failure, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

template <typename Body>
BOOL HMIGuardedBool(Body&& body) noexcept {
    return HMIGuarded<BOOL>(FALSE, [&]() -> BOOL { return body() ? TRUE : FALSE; });
}

#endif
