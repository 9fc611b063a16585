// HMIComApartment: COM initialisation of the calling thread for the length of one call.
#ifndef HMI_XML_COM_APARTMENT_H
#define HMI_XML_COM_APARTMENT_H

#include "platform/platform.h"

class HMIComApartment {
public:
    HMIComApartment() noexcept;
    ~HMIComApartment();
    HMIComApartment(const HMIComApartment&) = delete;
    HMIComApartment& operator=(const HMIComApartment&) = delete;

    // False when CoInitialize failed; a thread already in another apartment model can still proceed.
    bool ok() const noexcept { return SUCCEEDED(hr_) || hr_ == RPC_E_CHANGED_MODE; }

private:
    HRESULT hr_;
};

#endif
