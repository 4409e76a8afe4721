// What the module does beyond the drawing and the command line: nothing, unless a switch asks.
#include "common/drafting.h"
#include "gtest/gtest.h"
#include "host/control/effects.h"
#include "host/control/windows_setup.h"

namespace {

using host::EffectKind;
using host::effectTexts;
using tests::Drafting;

constexpr const wchar_t* kWork =
    L"LINE 1,1 2,2\n\nLINE 3,3 4,4\n\nVelmoGROUPMAKE ALL\n\n"
    L"PICK 1,1\nPICK NONE\nVelmoGROUPREMOVEMEMBER 1,1\n\n"
    L"VelmoGROUPDELETE 3,3\n\nVelmoGROUPNOTACTIVE\nVelmoGROUPACTIVE\n";

void expectNothingOutside() {
    for (const EffectKind kind :
         {EffectKind::AlertBox, EffectKind::DebugOutput, EffectKind::StandardOutput,
          EffectKind::RegistryWrite, EffectKind::FileWrite}) {
        EXPECT_EQ(effectTexts(kind), std::vector<std::wstring>());
    }
}

/// A per-user switch for the time of one test.
class Switch {
  public:
    explicit Switch(const wchar_t* name) {
        host::setRegistryDword(host::moduleRegistryKey(), name, 1);
    }
    ~Switch() { host::resetWindows(); }
};

TEST(Quiet, WithoutASwitchNothingLeavesTheDrawing) {
    Drafting drafting;
    drafting.run(kWork);
    expectNothingOutside();
}

TEST(Quiet, NoCheckFailsInOrdinaryWork) {
    const Switch assertStartup(L"AssertStartup");
    Drafting drafting;
    drafting.run(kWork);
    expectNothingOutside();
}

}  // namespace
