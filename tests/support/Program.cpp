#include "headless/HeadlessDesktop.h"
#include "platform/framework.h"

#include <gtest/gtest.h>

// A test program of the library: a desktop without a screen and a started class library around all tests.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    winlite::HeadlessDesktop desktop({2000, 1500});
    CWinApp app;
    if (!AfxWinInit(nullptr, nullptr, nullptr, 0))
        return 2;
    const int iResult = RUN_ALL_TESTS();
    AfxWinTerm();
    return iResult;
}
