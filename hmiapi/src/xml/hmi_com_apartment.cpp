#include "xml/hmi_com_apartment.h"

HMIComApartment::HMIComApartment() noexcept : hr_(CoInitialize(nullptr)) {}

// Only the call that initialised COM (S_OK, not S_FALSE) undoes it.
HMIComApartment::~HMIComApartment() {
    if (hr_ == S_OK) CoUninitialize();
}
