// What prompts take and print: selecting objects, picking one entity, points.
#include "editor/editor_fixture.h"
#include "host/control/effects.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/interactive_input.h"

namespace tests {
namespace {

using host::PromptStatus;

class Dialogue : public EditorTest {
  protected:
    Dialogue() {
        for (int i = 0; i < 3; ++i)
            add("0 LINE|10 " + std::to_string(10 * i) + "|20 0|11 " + std::to_string(10 * i) +
                "|21 5");
    }
    /// Runs the dialogue and gives what it printed, without the prompt itself.
    std::string select(std::deque<std::wstring> typed) {
        answers.left = std::move(typed);
        host::clearEffects();
        status = host::promptSelection(selection);
        std::string text = host::toUtf8(host::effectText(host::EffectKind::CommandLine));
        for (const char* noise : {"\nSelect objects: ", "\nRemove objects: "})
            text = replaced(text, noise, "|");
        return text;
    }

    PromptStatus status = PromptStatus::Cancel;
    std::vector<AcDbObjectId> selection;
};

TEST_F(Dialogue, EchoesWhatEachAnswerFound) {
    EXPECT_EQ(select({L"0,1", L"0,3", L"c", L"5,1", L"25,2", L"300,300", L""}),
              "|0,1\n1 found|0,3\n1 found (1 duplicate), 1 total|c\nSpecify first corner: 5,1\n"
              "Specify opposite corner: 25,2\n2 found, 3 total|300,300\n0 found, 3 total|");
    EXPECT_EQ(status, PromptStatus::Ok);
    EXPECT_EQ(letters(selection), "acb");
    EXPECT_EQ(select({L"_p", L"r", L"10,1", L"(handent \"0\")", L"a", L"l", L""}).substr(0, 64),
              "|_p\n3 found|r|10,1\n1 found, 1 removed, 2 total|(handent \"0\")\nno ");
    EXPECT_EQ(letters(selection), "ac");
}

TEST_F(Dialogue, WindowHandleLastAndPreviousWithoutWhatIsErased) {
    select({L"W", L"-1,-1", L"@12,7", handent(entities[0]), L"L", L""});
    EXPECT_EQ(letters(selection), "bac");
    erase(entities[2]);
    EXPECT_EQ(select({L"P", L""}), "|P\n2 found|");
}

TEST_F(Dialogue, EnterAndCancel) {
    EXPECT_EQ(select({L""}), "|");
    EXPECT_EQ(status, PromptStatus::None);
    EXPECT_EQ(select({L"0,1", L"^"}), "|0,1\n1 found|*Cancel*");
    EXPECT_EQ(status, PromptStatus::Cancel);
    EXPECT_TRUE(selection.empty());
    select({L"0,1", L"w", L"^"});
    EXPECT_EQ(status, PromptStatus::Cancel);
    select({L"0,1"});
    EXPECT_EQ(status, PromptStatus::Cancel) << "the input ended";
}

TEST_F(Dialogue, WrongAnswersAreExplained) {
    const AcDbObjectId gone = entities[1];
    erase(gone);
    EXPECT_EQ(select({handent(gone), L"nonsense", L"0,1", L""}),
              "|" + host::toUtf8(handent(gone)) + "\nthe entity with the handle " +
                  host::toUtf8(handleOf(gone)) +
                  " is erased.|nonsense\n\"nonsense\" is no selection; ? lists "
                  "what is.|0,1\n1 found|");
    EXPECT_EQ(letters(selection), "a");
    select({L"(handent \"FFFFFFFFFF\")", L""});
    EXPECT_EQ(status, PromptStatus::None);
}

TEST_F(Dialogue, AWrongAnswerFailsAScriptsCommand) {
    static const host::CommandTable own = {{L"CHOOSE", ACRX_CMD_USEPICKSET,
                                            [] {
                                                std::vector<AcDbObjectId> ids;
                                                host::promptSelection(ids);
                                                return host::CommandStatus::Done;
                                            },
                                            L"test"}};
    host::registerBuiltins(own);
    answers.left = {L"nonsense", L"0,1", L""};
    EXPECT_EQ(host::runCommand(L"CHOOSE"), host::CommandStatus::Failed);
    answers.person = true;
    answers.left = {L"nonsense", L"0,1", L""};
    EXPECT_EQ(host::runCommand(L"CHOOSE"), host::CommandStatus::Done);
    host::pick({entities[2], entities[0]});
    host::clearEffects();
    EXPECT_EQ(host::runCommand(L"CHOOSE"), host::CommandStatus::Done);
    EXPECT_EQ(host::effectText(host::EffectKind::CommandLine), L"\n2 found");
    EXPECT_EQ(letters(state.previous), "ca");
    EXPECT_TRUE(host::pickfirst().empty());
}

TEST_F(Dialogue, ModulesAskWithFilters) {
    add("0 CIRCLE|10 0|20 0|40 1");
    resbuf* filter = acutBuildList(RTDXF0, L"CIRCLE", RTNONE);
    answers.left = {L"ALL", L"", L"^"};
    EXPECT_EQ(get(nullptr, filter), "d");
    EXPECT_TRUE(holds(host::effectText(host::EffectKind::CommandLine), L"3 were filtered out"));
    EXPECT_EQ(get(nullptr, filter), std::to_string(RTCAN));
    acutRelRb(filter);
    host::pick({entities[1]});
    EXPECT_EQ(get(nullptr), "b") << "pick-first, unasked";
}

TEST_F(Dialogue, EntSelTellsItsFailuresApart) {
    ads_name name = {7, 7};
    ads_point point;
    const auto run = [&](const wchar_t* typed) {
        answers.left = {typed};
        return acedEntSel(L"\nSelect: ", name, point);
    };
    EXPECT_EQ(run(L"300,300"), RTERROR);
    EXPECT_EQ(host::sysvarInteger(L"ERRNO"), 7);
    EXPECT_EQ(run(L""), RTERROR);
    EXPECT_EQ(host::sysvarInteger(L"ERRNO"), 52);
    EXPECT_EQ(run(L"^"), RTCAN);
    EXPECT_EQ(run(L"nonsense"), RTERROR);
    EXPECT_EQ(name[0], 7);
    EXPECT_EQ(run(L"10,2"), RTNORM);
    EXPECT_EQ(static_cast<Adesk::UInt64>(name[0]), entities[1].asWord());
    EXPECT_EQ(point[1], 2);
    EXPECT_EQ(run(handent(entities[2]).c_str()), RTNORM);
    EXPECT_EQ(static_cast<Adesk::UInt64>(name[0]), entities[2].asWord());
    EXPECT_EQ(point[0], 20);
}

TEST_F(Dialogue, SubEntitiesStandForTheirOwner) {
    const AcDbObjectId id = add("0 POLYLINE|66 1|10 0|20 0");
    const AcDbObjectId vertex = add("0 VERTEX|10 50|20 50", host::Store::resolve(id)->self);
    answers.left = {handent(vertex)};
    ads_name name;
    ads_point point;
    EXPECT_EQ(acedEntSel(L"", name, point), RTNORM);
    EXPECT_EQ(static_cast<Adesk::UInt64>(name[0]), id.asWord());
}

TEST_F(Dialogue, GetPointAndItsOptions) {
    const ads_point base = {1, 1, 1};
    ads_point point;
    answers.left = {L"@2,3", L"4,5,6", L"", L"", L"7,8", L"@1,1", L"1,2,3,4", L"1<2<3", L"@5<"};
    EXPECT_EQ(acedGetPoint(base, L"", point), RTNORM);
    EXPECT_EQ(point[0] * 100 + point[1] * 10 + point[2], 341);
    EXPECT_EQ(acedGetPoint(nullptr, L"", point), RTNORM);
    EXPECT_EQ(point[0] * 100 + point[1] * 10 + point[2], 456);
    EXPECT_EQ(acedGetPoint(nullptr, L"", point), RTNONE);
    EXPECT_EQ(acedInitGet(1, nullptr), RTNORM);
    EXPECT_EQ(acedGetPoint(nullptr, L"", point), RTNORM) << "Enter is refused once, then 7,8";
    EXPECT_EQ(point[0], 7);
    EXPECT_EQ(acedGetPoint(nullptr, L"", point), RTNORM) << "relative to the point given last";
    EXPECT_EQ(point[0] * 10 + point[1], 89);
    for (int wrong = 0; wrong < 3; ++wrong)
        EXPECT_EQ(acedGetPoint(nullptr, L"", point), RTCAN) << wrong;
    EXPECT_EQ(acedInitGet(0, L"Yes No"), RTERROR);
}

TEST_F(Dialogue, SelectionsInOneGo) {
    const auto parse = [&](const std::vector<std::wstring>& words) {
        std::wstring why;
        return host::parseSelection(words, selection, why) ? letters(selection) : "wrong";
    };
    EXPECT_EQ(parse({L"w", L"5,1", L"@50,50"}), "");
    EXPECT_EQ(parse({L"c", L"5,1", L"@50,50"}), "cb");
    EXPECT_EQ(parse({L"(handent", L"\"" + handleOf(entities[1]) + L"\")"}), "b");
    EXPECT_EQ(parse({}), "wrong");
}

}  // namespace
}  // namespace tests
