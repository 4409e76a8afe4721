// Random editing beside a plain count: nothing is lost or made up, and repair leaves sound groups.
#include <random>

#include "common/census.h"
#include "common/scene.h"
#include "common/seeds.h"

namespace {

using tests::Census;
using tests::censusOf;
using tests::isMarker;
using tests::kindsOf;
using tests::Scene;
using tests::unsoundGroup;
using tests::wordsOf;

/// One session: each step says what it did and what the census has to be afterwards.
class EditingSession {
  public:
    explicit EditingSession(unsigned seed)
        : m_random(seed),
          m_scene("(line line circle) line (circle circle) circle line"),
          m_census(censusOf(m_scene)) {}

    void step() {
        const int choice = pickOne(10);
        if (choice == 0) draw();
        if (choice == 1) make();
        if (choice == 2) copy(L"COPY 0,0 0,50\n\n");
        if (choice == 3) copy(L"MIRROR 0,-1 1,-1 N\n");
        if (choice == 4) erase();
        if (choice == 5) cutAndPaste();
        if (choice == 6) actUnaccounted(L"VelmoGROUPDELETE " + anyEntity() + L"\n\n");
        if (choice == 7)
            actUnaccounted(pickOne(2) == 0 ? L"VelmoGROUPNOTACTIVE\n" : L"VelmoGROUPACTIVE\n");
        if (choice >= 8) undo();
        m_scene.run(L"PICK NONE\n");
        EXPECT_EQ(censusOf(m_scene), m_census) << m_steps;
    }

    /// After a repair every group is sound; loading what was saved changes nothing.
    void save() {
        actUnaccounted(L"REGEN\n");
        EXPECT_EQ(unsoundGroup(m_scene), "") << m_steps << m_scene.order();
        m_scene.saveAndReopen();
        m_past.clear();
        EXPECT_EQ(censusOf(m_scene), m_census) << m_steps;
        EXPECT_EQ(unsoundGroup(m_scene), "") << m_steps << m_scene.order();
    }

    /// Each member of each group, picked alone, brings the whole.
    void expectPickable() {
        m_scene.run(L"VelmoGROUPACTIVE\n");
        const std::vector<std::string> words = wordsOf(m_scene);
        std::size_t begin = 0;
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (words[i][0] == 'b') begin = i;
            for (std::size_t member = begin + 1; words[i] == "end" && member < i; ++member) {
                m_scene.run(L"PICK NONE\n");
                m_scene.click({static_cast<int>(member + 1)});
                EXPECT_EQ(host::pickfirst().size(), i - begin + 1) << m_steps << m_scene.order();
            }
        }
    }

  private:
    int pickOne(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    /// "#n" of an entity that is no marker; drawings here are never empty.
    std::wstring anyEntity() {
        const std::vector<std::string> words = wordsOf(m_scene);
        for (;;) {
            const int at = pickOne(static_cast<int>(words.size()));
            if (!isMarker(words[static_cast<std::size_t>(at)])) {
                return L"#" + std::to_wstring(at + 1);
            }
        }
    }

    void act(const std::wstring& script) {
        m_steps += host::toUtf8(script);
        m_scene.after(script);
    }

    /// A command that changes the drawing, and the entities that it adds or, with -1, takes away.
    void edit(const std::wstring& script, const Census& by, int sign) {
        m_past.push_back(m_census);
        act(script);
        for (const auto& [type, count] : by) {
            m_census[type] += sign * count;
            if (m_census[type] == 0) m_census.erase(type);
        }
    }

    /// A command that may change the drawing or not: what was before is out of undo's known reach.
    void actUnaccounted(const std::wstring& script) {
        act(script);
        m_past.clear();
    }

    void undo() {
        if (m_past.empty()) return;
        const int count = 1 + pickOne(static_cast<int>(m_past.size()));
        const Census now = m_census;
        m_census = m_past[m_past.size() - static_cast<std::size_t>(count)];
        act(L"UNDO " + std::to_wstring(count) + L"\n");
        if (pickOne(2) == 0) {
            m_past.resize(m_past.size() - static_cast<std::size_t>(count));
            return;
        }
        EXPECT_EQ(censusOf(m_scene), m_census) << m_steps;
        act(L"REDO\n");
        m_census = now;
    }

    void draw() { edit(L"LINE 1,1 2,2\n\n", {{"line", 1}}, 1); }

    void make() { edit(L"VelmoGROUPMAKE " + anyEntity() + L" " + anyEntity() + L"\n\n", {}, 1); }

    /// What is picked now, markers left out.
    Census picked() {
        const std::vector<std::string> kinds = kindsOf(m_scene);
        std::istringstream positions(m_scene.picked());
        Census census;
        for (std::size_t position; positions >> position;) {
            const std::string& kind = kinds.at(position - 1);
            if (!kind.empty()) ++census[kind];
        }
        return census;
    }

    void copy(const std::wstring& command) {
        if (wordsOf(m_scene).size() > 150) return;
        act(L"PICK " + anyEntity() + L"\n");
        edit(command, picked(), 1);
    }

    void erase() {
        if (wordsOf(m_scene).size() < 8) return draw();
        const std::wstring entity = anyEntity();
        const std::string kind = kindsOf(m_scene).at(std::stoul(entity.substr(1)) - 1);
        edit(L"ERASE " + entity + L"\n\n", {{kind, 1}}, -1);
    }

    void cutAndPaste() {
        act(L"PICK " + anyEntity() + L"\n");
        const Census cut = picked();
        edit(L"CUTCLIP\n", cut, -1);
        EXPECT_EQ(censusOf(m_scene), m_census) << m_steps;
        edit(L"PASTECLIP 3,3\n", cut, 1);
    }

    std::mt19937 m_random;
    Scene m_scene;
    Census m_census;
    std::vector<Census> m_past;  ///< before each of the last commands, as far as undo may go back
    std::string m_steps;
};

/// Sixty sessions of a hundred steps, with a save behind every twentieth.
TEST(EditingSession, LosesNothingAndRepairLeavesSoundGroups) {
    tests::tryEachSeed(60, [](unsigned seed) {
        EditingSession session(seed);
        for (int step = 1; step <= 100 && !HasFailure(); ++step) {
            session.step();
            if (step % 20 == 0) session.save();
        }
        session.expectPickable();
    });
}

}  // namespace
