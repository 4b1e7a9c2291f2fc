#include "mfc/Module.h"
#include "headless/HeadlessDesktop.h"
#include "mfc/Thread.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

std::string s_strLog;
bool s_bSecondRefuses = false;
AFX_EXTENSION_MODULE s_FirstState = {};

BOOL FirstEntry(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
    s_strLog += dwReason == DLL_PROCESS_ATTACH ? "+1" : "-1";
    if (dwReason == DLL_PROCESS_ATTACH && AfxInitExtensionModule(s_FirstState, hInstance))
        new CDynLinkLibrary(s_FirstState);
    if (dwReason == DLL_PROCESS_DETACH)
        AfxTermExtensionModule(s_FirstState);
    return TRUE;
}

BOOL SecondEntry(HINSTANCE, DWORD dwReason, LPVOID)
{
    s_strLog += dwReason == DLL_PROCESS_ATTACH ? "+2" : "-2";
    return !s_bSecondRefuses;
}

const BYTE s_vBytes[] = {1, 2, 3};
const winlite::Resource s_vResources[] = {{2, 42, s_vBytes}};
const winlite::Module s_First = {L"first", &FirstEntry, s_vResources};
const winlite::Module s_Second = {L"second", &SecondEntry, {}};
const winlite::ModuleRegistration s_RegisterFirst(s_First);
const winlite::ModuleRegistration s_RegisterSecond(s_Second);

} // namespace

TEST(ModuleTest, ModulesAttachInOrderAndDetachInReverse)
{
    winlite::HeadlessDesktop desktop;
    s_strLog.clear();
    ASSERT_TRUE(AfxWinInit(nullptr, nullptr, nullptr, 0));
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(42), RT_BITMAP), winlite::InstanceOf(s_First));
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(42), RT_GROUP_CURSOR), nullptr) << "another type is not found";
    EXPECT_EQ(::LoadBitmap(winlite::InstanceOf(s_First), MAKEINTRESOURCE(42)), nullptr) << "three bytes are no bitmap";
    AfxWinTerm();
    EXPECT_EQ(s_strLog, "+1+2-2-1");
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(42), RT_BITMAP), nullptr) << "no longer on the chain";
}

TEST(ModuleTest, AModuleThatRefusesFailsTheStart)
{
    winlite::HeadlessDesktop desktop;
    s_strLog.clear();
    s_bSecondRefuses = true;
    EXPECT_FALSE(AfxWinInit(nullptr, nullptr, nullptr, 0));
    EXPECT_EQ(s_strLog, "+1+2-2-1");
    s_bSecondRefuses = false;
    AFX_EXTENSION_MODULE state = {};
    EXPECT_FALSE(AfxInitExtensionModule(state, nullptr));
}
