// Printing, menus, highlighting and system variables.
#include "editor/editor_fixture.h"
#include "host/control/effects.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/command_line.h"
#include "host/objectarx/entities.h"
#include "host/objectarx/system_variables.h"

namespace tests {
namespace {

using Services = EditorTest;
using host::EffectKind;
using host::effectTexts;

std::wstring printed() {
    const std::wstring text = host::effectText(EffectKind::CommandLine);
    host::clearEffects();
    return text;
}

TEST_F(Services, PrintfTakesWideText) {
    acutPrintf(L"%s|%ls|%hs|%S|%5s|%-5s|%.2s|%c", L"\u00e4", L"b", "c", "d", L"e", L"f", L"ghi",
               L'j');
    EXPECT_EQ(printed(), L"\u00e4|b|c|d|    e|f    |gh|j");
    acutPrintf(L"%d %5u %-4x| %05.1f %ld %lld %I64d %%", -1, 2u, 255, 1.25, 3L, 4LL, 5LL);
    EXPECT_EQ(printed(), L"-1     2 ff  | 001.2 3 4 5 %");
    acutPrintf(L"%*d|%-*d|%.*f", 4, 1, 3, 2, 1, 0.25);
    EXPECT_EQ(printed(), L"   1|2  |0.2");
    acutPrintf(L"%s %q %", static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(printed(), L"(null) %q %");
    EXPECT_EQ(acutPrintf(nullptr), RTERROR);
    acutPrintf(L"%999999999d", 1);
    EXPECT_EQ(printed().size(), 4096u);
}

TEST_F(Services, MenuItemsOfLoadedGroups) {
    host::loadMenuGroup(L"Plans");
    EXPECT_EQ(acedIsMenuGroupLoaded(L"PLANS"), 1);
    EXPECT_EQ(acedIsMenuGroupLoaded(L"Other"), 0);
    EXPECT_EQ(acedMenuCmd(L"GPlans.ID_ON=~"), RTNORM);
    EXPECT_EQ(acedMenuCmd(L"GOther.ID_ON=~"), RTNORM);
    EXPECT_EQ(acedMenuCmd(L"nonsense"), RTERROR);
    EXPECT_EQ(host::menuItemState(L"plans.id_on"), L"~");
    EXPECT_EQ(host::menuItemState(L"Other.ID_ON"), L"");
    acedMenuCmd(L"GPlans.ID_ON=");
    EXPECT_EQ(host::menuItemState(L"Plans.ID_ON"), L"");
    EXPECT_EQ(effectTexts(EffectKind::MenuCommand).size(), 3u);
}

TEST_F(Services, HighlightsAreKeptInBalance) {
    ads_name name;
    acdbGetAdsName(name, add("0 POINT|10 0|20 0"));
    EXPECT_EQ(acedRedraw(name, 3), RTNORM);
    EXPECT_EQ(acedRedraw(name, 3), RTNORM);
    EXPECT_EQ(state.highlighted.size(), 1u);
    EXPECT_EQ(acedRedraw(name, 4), RTNORM);
    EXPECT_TRUE(state.highlighted.empty());
    EXPECT_EQ(acedRedraw(name, 5), RTREJ);
    EXPECT_EQ(acedRedraw(nullptr, 1), RTNORM);
    erase(entities[0]);
    EXPECT_EQ(acedRedraw(name, 3), RTERROR);
    const std::wstring handle = effectTexts(EffectKind::Redraw)[0].substr(2);
    EXPECT_EQ(effectTexts(EffectKind::Redraw),
              (std::vector<std::wstring>{L"3 " + handle, L"3 " + handle, L"4 " + handle, L"1"}));
    ads_name foreign = {123456789, 0};
    EXPECT_EQ(acedRedraw(foreign, 3), RTERROR);
    EXPECT_EQ(takeFaults().size(), 1u);
}

int setShort(const wchar_t* name, short value) {
    resbuf buffer = {};
    buffer.restype = RTSHORT;
    buffer.resval.rint = value;
    return acedSetVar(name, &buffer);
}

TEST_F(Services, VariablesOfTheApplication) {
    resbuf result = {};
    EXPECT_EQ(acedGetVar(L"pickadd", &result), RTNORM);
    EXPECT_EQ(result.restype, RTSHORT);
    EXPECT_EQ(result.resval.rint, 2);
    EXPECT_EQ(setShort(L"PickFirst", 0), RTNORM);
    EXPECT_EQ(host::sysvarInteger(L"PICKFIRST"), 0);
    EXPECT_EQ(setShort(L"PICKADD", 3), RTERROR);
    EXPECT_EQ(setShort(L"NOSUCH", 1), RTERROR);
    EXPECT_EQ(effectTexts(EffectKind::SystemVariable), std::vector<std::wstring>{L"PICKFIRST=0"});
    result.restype = RTREAL;
    EXPECT_EQ(acedSetVar(L"PICKADD", &result), RTERROR);
    host::resetSysvars();
    EXPECT_EQ(host::sysvarInteger(L"PICKFIRST"), 1);
}

TEST_F(Services, VariablesOfTheDrawing) {
    std::wstring why, text;
    EXPECT_FALSE(host::setSysvarText(L"CVPORT", L"1", why)) << "the Model tab is current";
    EXPECT_EQ(setShort(L"TILEMODE", 0), RTNORM);
    EXPECT_FALSE(database.tilemode());
    EXPECT_EQ(store.currentViewport, 1);
    EXPECT_EQ(store.currentSpace(), store.paperSpace());
    EXPECT_EQ(setShort(L"CVPORT", 2), RTNORM);
    EXPECT_EQ(store.currentSpace(), store.modelSpace());
    EXPECT_EQ(setShort(L"TILEMODE", 1), RTNORM);
    ASSERT_TRUE(host::sysvarText(L"CTAB", text));
    EXPECT_EQ(text, L"Model");
    addRecord("LAYER", "0 LAYER|2 Walls|70 0|62 7");
    addRecord("LAYER", "0 LAYER|2 Cold|70 1|62 7");
    EXPECT_TRUE(host::setSysvarText(L"CLAYER", L"WALLS", why));
    resbuf result = {};
    ASSERT_EQ(acedGetVar(L"CLAYER", &result), RTNORM);
    EXPECT_STREQ(result.resval.rstring, L"Walls");
    acutDelString(result.resval.rstring);
    EXPECT_FALSE(host::setSysvarText(L"CLAYER", L"Cold", why));
    EXPECT_EQ(why, L"the layer Cold is frozen");
    EXPECT_FALSE(host::setSysvarText(L"CLAYER", L"Nowhere", why));
    EXPECT_FALSE(host::setSysvarText(L"DWGNAME", L"x", why));
    EXPECT_EQ(why, L"DWGNAME is read-only");
}

TEST_F(Services, VariablesTakeOnlyWhatFits) {
    std::wstring why;
    for (const wchar_t* value : {L"0", L"-1", L"nan", L"inf", L"big"})
        EXPECT_FALSE(host::setSysvarText(L"TEXTSIZE", value, why)) << value;
    EXPECT_TRUE(host::setSysvarText(L"TEXTSIZE", L"3.5", why));
    EXPECT_EQ(store.headerValue("$TEXTSIZE"), "3.5");
    for (const wchar_t* value : {L"2", L"1.5", L"", L"on", L"99999999999999999999"})
        EXPECT_FALSE(host::setSysvarText(L"PICKFIRST", value, why)) << value;
    EXPECT_EQ(why, L"PICKFIRST takes a whole number from 0 to 1");
    host::setCurrentDocumentState(nullptr);
    EXPECT_FALSE(host::setSysvarText(L"TILEMODE", L"0", why));
    EXPECT_EQ(why, L"TILEMODE needs an open drawing");
    resbuf result = {};
    EXPECT_EQ(acedGetVar(L"TILEMODE", &result), RTERROR);
    EXPECT_EQ(acedGetVar(L"PICKFIRST", &result), RTNORM);
}

}  // namespace
}  // namespace tests
