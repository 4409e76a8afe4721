// A report of the module in a real message box of Windows.
#include <windows.h>

#include <thread>

#include "common/scene.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"

namespace {

TEST(Diagnostics, AFailedCheckShowsARealBox) {
    host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", 1);
    tests::Scene scene("(line) line");
    wchar_t text[4096] = {};
    std::thread user([&text] {
        HWND box = NULL;
        for (int waits = 0; waits < 2000 && box == NULL; ++waits) {
            ::Sleep(5);
            box = ::FindWindowW(L"#32770", L"Assertion Failure: VelmoGroup");
        }
        constexpr int kTextOfABox = 0xFFFF;
        ::GetDlgItemTextW(box, kTextOfABox, text, 4096);
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    host::setFaultPlan({1, false, "acedSSLength"});
    scene.after(L"VelmoGROUPDELETE #2\n\n");
    host::setFaultPlan({});
    user.join();
    const std::wstring report =
        L"Module : <VelmoGroup>\nAssertion : <acedSSLength(selection, &length) == RTNORM>\n"
        L"File : <GroupCommands>\nLine : ";
    EXPECT_EQ(std::wstring(text).substr(0, report.size()), report);
    host::resetWindows();
}

}  // namespace
