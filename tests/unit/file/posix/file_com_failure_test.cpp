// The File readers on a thread with COM when CoInitialize is made to fail: only RPC_E_CHANGED_MODE lets
// them work, no reader undoes an initialisation it did not make, and no DOM object or BSTR outlives a call.
#include <gtest/gtest.h>

#include "posix/testhooks.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

TEST(FileReadersCom, FailedInitialisationFailsEveryReader) {
    TestFiles files;
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    HMIAccess* access = HMIOpen(nullptr);
    ASSERT_NE(access, nullptr);
    std::vector<unsigned char> out(kOutBytes);
    for (const HRESULT hr : {E_OUTOFMEMORY, RPC_E_CHANGED_MODE}) {
        SCOPED_TRACE(hr);
        const bool proceeds = hr == RPC_E_CHANGED_MODE;
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        HMITestForceCoInitializeResult(hr);
        for (const auto& [name, read] : FileReaders()) {
            EXPECT_EQ(read(access, path.c_str(), out.data(), nullptr), proceeds) << name;
        }
        HMITestForceCoInitializeResult(S_OK);
        EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
        CoUninitialize();
        CoUninitialize();
        EXPECT_EQ(HMITestLiveDomObjects(), 0);
        EXPECT_EQ(HMITestLiveBstrs(), 0);
    }
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
