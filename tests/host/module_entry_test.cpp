// The module's entry and what joining the framework gives a host.
#include <gtest/gtest.h>

#include "host/host_link.h"
#include "platform/core/module.h"
#include "platform/gdi/bitmap.h"
#include "platform/menu/menu.h"
#include "platform/text/gbk.h"
#include "tests/support/test_host.h"

extern "C" BOOL DllMain(HINSTANCE, DWORD, LPVOID);

namespace {

TEST(ModuleEntry, LoadingMakesTheLibrarysResourcesFindableById)
{
    // The environment loaded the module once; the chain holds it.
    EXPECT_GE(AfxGetChainLength(), 1);
    EXPECT_NE(AfxFindResourceHandle(20001, ResourceType::Menu), nullptr);
    CMenu menu;
    EXPECT_TRUE(menu.LoadMenu(20001));
    CBitmap strip;
    ASSERT_TRUE(strip.LoadBitmap(599));
    BITMAP info{};
    strip.GetBitmap(&info);
    EXPECT_EQ(info.bmWidth, 9 * 18);
    EXPECT_EQ(info.bmHeight, 17);
    CString text;
    EXPECT_TRUE(text.LoadString(32014));
    EXPECT_EQ(std::string(text), GBK(u8"清除所有书签"));
    EXPECT_FALSE(text.LoadString(1));
}

TEST(ModuleEntry, ReasonsAndFailures)
{
    const int chain = AfxGetChainLength();
    EXPECT_EQ(DllMain(nullptr, DLL_THREAD_ATTACH, nullptr), 1);
    EXPECT_EQ(DllMain(nullptr, DLL_THREAD_DETACH, nullptr), 1);
    EXPECT_EQ(AfxGetChainLength(), chain);
    // An instance handle the framework does not know makes the attach fail.
    EXPECT_EQ(DllMain(reinterpret_cast<HINSTANCE>(0x1234), DLL_PROCESS_ATTACH, nullptr), 0);
    EXPECT_EQ(AfxGetChainLength(), chain);
    EXPECT_EQ(AfxLoadLibrary("/nonexistent/libnothing.so"), nullptr);
}

TEST(HostLink, UnansweredRequestsLeaveNothing)
{
    TestHost host;
    host.answersAppData = false;
    host.answersProjectPath = false;
    EXPECT_EQ(HostLink::QueryAppData(), nullptr);
    char directory[kPathBytes];
    HostLink::QueryProjectDirectory(directory);
    EXPECT_STREQ(directory, "");
    host.answersAppData = true;
    host.answersProjectPath = true;
    EXPECT_EQ(HostLink::QueryAppData(), &host.appData);
    HostLink::QueryProjectDirectory(directory);
    EXPECT_STREQ(directory, "C:\\work\\demo");
    host.appData.context = nullptr;
    EXPECT_EQ(HostLink::QueryProjectContext(), nullptr);
    EXPECT_EQ(host.Count(UWM_GET_APP_DATA), 3);
}

}  // namespace
