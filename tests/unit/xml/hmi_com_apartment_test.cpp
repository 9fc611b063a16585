#include "xml/hmi_com_apartment.h"

#include <gtest/gtest.h>

#include <thread>

#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_document.h"

namespace {

// Whether COM is initialised on this thread; the probe leaves the thread as it found it.
bool ComInitialised() {
    const HRESULT hr = CoInitialize(nullptr);
    if (SUCCEEDED(hr)) CoUninitialize();
    return hr == S_FALSE || hr == RPC_E_CHANGED_MODE;
}

// On a thread of its own: prepare, an apartment in which the DOM must work, then after.
template <typename Prepare, typename After>
void OnFreshThread(Prepare prepare, After after) {
    std::thread([&] {
        prepare();
        {
            HMIComApartment com;
            EXPECT_TRUE(com.ok());
            EXPECT_TRUE(HMIComPtr<IXMLDOMDocument2>(HMICreateXMLDocument())) << "the DOM works inside";
        }
        after();
    }).join();
}

// A fresh thread is initialised for the call only; an initialisation that answered S_FALSE is never
// undone; in a multithreaded apartment (RPC_E_CHANGED_MODE) the call proceeds and leaves it as it was.
TEST(HMIComApartment, LeavesEachThreadAsItFoundIt) {
    OnFreshThread([] {}, [] { EXPECT_FALSE(ComInitialised()); });
    OnFreshThread([] { ASSERT_EQ(CoInitialize(nullptr), S_OK); }, [] {
        CoUninitialize();
        EXPECT_TRUE(ComInitialised()) << "the apartment's own S_FALSE initialisation remains";
        CoUninitialize();
    });
    OnFreshThread([] { ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK); }, [] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
        CoUninitialize();
        CoUninitialize();
    });
}

}  // namespace
