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
    for (const HRESULT hr : {E_OUTOFMEMORY, RPC_E_CHANGED_MODE}) {
        SCOPED_TRACE(hr);
        const bool proceeds = hr == RPC_E_CHANGED_MODE;
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        HMITestForceCoInitializeResult(hr);
        _tagHMICommonInfo info;
        _tagHMIMediaInfoHeader header;
        WCHAR name[8];
        unsigned char block[512];
        EXPECT_EQ(HMIGetCommonInfoFile(access, path.c_str(), &info), proceeds);
        EXPECT_EQ(HMIGetMediaInfoHeaderFile(access, path.c_str(), HMI_W("A"), &header), proceeds);
        EXPECT_EQ(HMIGetMediaNameFile(access, path.c_str(), HMI_W("en"), name, 8, nullptr), proceeds);
        EXPECT_EQ(HMIGetAvailableMediaFile(access, path.c_str(), reinterpret_cast<_tagHMIAvailableMedia*>(block),
                                           sizeof block, nullptr), proceeds);
        EXPECT_EQ(HMIEnumMediaNamesFile(access, path.c_str(), reinterpret_cast<_tagHMIMediaNameList*>(block),
                                        sizeof block, nullptr), proceeds);
        HMIXMLMediaDetail* detail = HMIFilterMediaFile(access, HMI_W("A"), path.c_str());
        EXPECT_EQ(detail != nullptr, proceeds);
        HMICloseMediaFile(access, detail);
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
