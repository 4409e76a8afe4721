// U, UNDO and REDO, beside a plain model: the list of all states.
#include <random>

#include "commands/commands_fixture.h"
#include "common/seeds.h"
#include "host/objectarx/editor.h"

namespace tests {
namespace {

using namespace host;

class UndoTest : public CommandsTest {
  protected:
    UndoTest() {
        session->openDrawing(TESTS_FOLDER "/commands/every_type.dxf");
        clearEffects();
    }
};

/// A random command that changes the drawing. Copies double what they copy: a large drawing
/// shrinks.
std::wstring randomEdit(std::mt19937& random, bool large) {
    if (large) return L"ERASE W -9,-9 99,99\n\n";
    const std::wstring number = std::to_wstring(random() % 50);
    const wchar_t* selections[] = {L"L\n\n", L"C 0,0 4,4\n\n", L"W -9,-9 9,9\n\n"};
    const std::wstring selection = selections[random() % 3];
    const std::wstring edits[] = {L"MOVE " + selection + L"0,0 " + number + L",1\n",
                                  L"COPY " + selection + L"0,0 " + number + L",1 3,3\n\n",
                                  L"MIRROR " + selection + L"0,0 " + number + L",1 Y\n",
                                  L"MIRROR " + selection + L"0,0 1," + number + L" N\n",
                                  L"CUTCLIP " + selection,
                                  L"COPYCLIP " + selection + L"PASTECLIP " + number + L",0\n",
                                  L"ERASE L\n\n",
                                  L"SETVAR TEXTSIZE " + number + L".5\n",
                                  L"LINE 0,0 " + number + L",7 8,8\n\n"};
    return edits[random() % std::size(edits)];
}

TEST_F(UndoTest, RandomEditingGoesBackAndForth) {
    const unsigned seed = wantedSeed().value_or(1);
    SCOPED_TRACE("VELMO_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    std::vector<std::string> states{stateOf(store())};
    std::size_t now = 0;
    for (int round = 0; round < 150; ++round) {
        const unsigned action = random() % 4;
        if (action == 0 && now > 0) {
            const std::size_t back = std::min<std::size_t>(now, 1 + random() % 3);
            run(L"UNDO " + std::to_wstring(back) + L"\n");
            now -= back;
            ASSERT_EQ(stateOf(store()), states[now]);
            if (random() % 2 == 0) continue;
            run(L"REDO\n");
            now += back;
            ASSERT_EQ(stateOf(store()), states[now]);
        } else {
            const std::wstring edit = randomEdit(random, states[now].size() > 8 * states[0].size());
            run(edit);
            if (stateOf(store()) == states[now]) continue;
            states.resize(++now);
            states.push_back(stateOf(store()));
            ASSERT_EQ(errorsIn(store()), "") << std::string(edit.begin(), edit.end());
        }
    }
    run(L"UNDO 32767\n");
    EXPECT_EQ(stateOf(store()), states[0]);
    run(L"REDO\n");
    EXPECT_EQ(stateOf(store()), states[now]);
}

TEST_F(UndoTest, AnUndoneObjectIsNowhereAndItsHandleNotGivenAgain) {
    run(L"LINE 0,0 1,1\n\n");
    ObjectBody& line = store().at(store().lastLive(store().modelSpace()));
    const AcDbObjectId id = store().idOf(line);
    const std::uint64_t handle = line.handle;
    run(L"U\n");
    EXPECT_TRUE(id.isErased());
    AcDbObjectId found;
    EXPECT_EQ(session->database()->getAcDbObjectId(found, false, AcDbHandle(handle)),
              Acad::eUnknownHandle);
    run(L"CIRCLE 0,0 1\n");
    EXPECT_GT(store().at(store().lastLive(store().modelSpace())).handle, handle);
    clearEffects();
    run(L"REDO\n");
    EXPECT_TRUE(holds(shown(), "Everything has been redone."));
    EXPECT_TRUE(id.isErased());
}

/// What a reactor does around a command belongs to it; each drawing has its own past.
TEST_F(UndoTest, ReactorsBelongToTheCommandAndDrawingsAreApart) {
    struct Eraser : AcEditorReactor {
        void commandEnded(const ACHAR* name) override {
            if (std::wstring(name) == L"CIRCLE") body->store->setErased(*body, true);
        }
        ObjectBody* body = nullptr;
    } reactor;
    reactor.body = &entity("LINE");
    auto* editor = static_cast<AcEditor*>(acrxSysRegistry()->at(L"AcEditor"));
    editor->addReactor(&reactor);
    const std::string before = stateOf(store());
    run(L"CIRCLE 0,0 1\n");
    editor->removeReactor(&reactor);
    EXPECT_TRUE(reactor.body->erased);
    run(L"NEW\nU\n");
    EXPECT_TRUE(holds(shown(), "Everything has been undone."));
    run(L"SWITCH 1\nU\n");
    EXPECT_EQ(stateOf(store()), before);
    EXPECT_EQ(run(L"UNDO Begin\n"), CommandStatus::Cancelled);
    EXPECT_TRUE(holds(shown(), "UNDO has no other options here"));
}

TEST_F(UndoTest, SavingIsNotUndoneAndWhatIsUndoneIsNotSaved) {
    const std::wstring name = L" " + quoted("a.dxf") + L"\n";
    run(L"COPY ALL\n\n0,0 9,9\n\nU\nSAVEAS" + name + L"U\n");
    const std::string kept = entities();
    EXPECT_EQ(run(L"CLOSE\nOPEN" + name), CommandStatus::Done);
    EXPECT_EQ(entities(), kept);
    EXPECT_EQ(run(L"LINE 0,0 1,1\n\nQSAVE\nU\n"), CommandStatus::Done);
    EXPECT_EQ(entities(), kept) << "the line goes, not the save";
}

}  // namespace
}  // namespace tests
