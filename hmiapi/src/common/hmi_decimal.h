// The database's format version ("2.10") as a float, converted the same way on every platform.
#ifndef HMI_COMMON_DECIMAL_H
#define HMI_COMMON_DECIMAL_H

#include "platform/platform.h"

// The value of the longest prefix of text that is a decimal number after leading white space:
// [sign] digits [. digits] [e|E [sign] digits], at least one mantissa digit; 0 for a null text or one
// without such a prefix. The version is described as a decimal number, so hexadecimal, "inf", "nan"
// and the "d" exponent that some runtimes take end the prefix where they start. The number is rounded
// to a double, then to the nearest float: beyond the float range the infinity of its sign, below it
// zero of its sign.
float HMIDecimalToFloat(const WCHAR* text) noexcept;

#endif
