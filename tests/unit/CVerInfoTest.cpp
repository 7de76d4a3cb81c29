#include <gtest/gtest.h>
#include <windows.h>
#include "support/ScratchFolder.h"
#include "support/TestPaths.h"
#include "support/VersionResource.h"
#include "tovutil/CVerInfo.h"

using namespace wbstest;

TEST(CVerInfo, FileVersionPartsComeFromTheFixedPartInOrder) {
    ScratchFolder folder(CurrentTestName());
    const std::wstring copy = folder.File(L"versioned.exe");
    ASSERT_TRUE(::CopyFileW(StubBrowserProgram().c_str(), copy.c_str(), FALSE));
    ASSERT_TRUE(StampFileVersion(copy, 7, 12, 345, 6789));

    CVerInfo info;
    ASSERT_TRUE(info.Init(copy.c_str()));
    CVerNum version;
    ASSERT_TRUE(info.GetFileVersionNum(version));
    EXPECT_EQ(version.GetMajor(), 7);
    EXPECT_EQ(version.GetMinor(), 12);
    EXPECT_EQ(version.GetBuild(), 345);
    EXPECT_EQ(version.GetRevision(), 6789);
}

TEST(CVerInfo, AFileWithoutVersionOrAMissingFileLeavesTheVersionAlone) {
    ScratchFolder folder(CurrentTestName());
    const CVerNum untouched(MAKELONG(2, 1), MAKELONG(4, 3));
    for (const std::wstring& path : {StubBrowserProgram(), folder.File(L"missing.exe")}) {
        CVerInfo info;
        EXPECT_FALSE(info.Init(path.c_str()));
        CVerNum version = untouched;
        EXPECT_FALSE(info.GetFileVersionNum(version));
        EXPECT_EQ(version.GetMajor(), 1);
        EXPECT_EQ(version.GetRevision(), 4);
    }
}
