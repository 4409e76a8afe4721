// The whole life of groups on drawings that nobody here made.
#include <algorithm>
#include <filesystem>
#include <set>

#include "common/census.h"
#include "common/drawing_order.h"
#include "gtest/gtest.h"
#include "host/dxf/check/drawing_check.h"
#include "host/editor/selection/pickfirst.h"
#include "host/objectarx/database.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace {

using tests::Census;
using tests::Drafting;

/// Debian's librecad-data; ./check installs it.
constexpr const char* kLibrary = "/usr/share/librecad/library";

std::vector<std::string> someDrawings() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kLibrary)) {
        if (entry.path().extension() == ".dxf") files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> some;
    for (std::size_t i = 0; i < files.size(); i += 20) {
        some.push_back(files[i]);
    }
    return some;
}

class Life {
  public:
    explicit Life(const std::string& file) : m_drafting(file, L"", Drafting::Damage::Known) {}

    bool suits() {
        const std::vector<std::string> words = tests::wordsOf(m_drafting);
        return words.size() >= 4 && words.size() <= 400;
    }

    /// Runs a step; afterwards the census is the former one with `by` added.
    void step(const std::wstring& script, const Census& by = {}) {
        SCOPED_TRACE(host::toUtf8(script));
        Census expected = tests::censusOf(m_drafting);
        for (const auto& [type, count] : by) {
            expected[type] += count;
            if (expected[type] == 0) expected.erase(type);
        }
        const std::set<std::string> errors = errorsNow();
        m_drafting.run(script);
        EXPECT_EQ(tests::censusOf(m_drafting), expected);
        for (const std::string& error : errorsNow()) {
            EXPECT_EQ(errors.count(error), 1u) << error;
        }
    }

    void expectSound() { EXPECT_EQ(tests::unsoundGroup(m_drafting), "") << m_drafting.order(); }

    /// Sound groups of which each member, picked alone, brings the whole.
    void expectPickable() {
        expectSound();
        const std::vector<std::string> words = tests::wordsOf(m_drafting);
        std::size_t begin = 0;
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (words[i][0] == 'b') begin = i;
            if (words[i] != "end") continue;
            for (std::size_t member = begin + 1; member < i; ++member) {
                m_drafting.run(L"PICK NONE\nPICK " + entity(member) + L"\n");
                EXPECT_EQ(host::pickfirst().size(), i - begin + 1) << words[member];
            }
        }
        m_drafting.run(L"PICK NONE\n");
    }

    /// "(handent ..)" of the n-th main entity.
    std::wstring entity(std::size_t n) const {
        const host::Store& store = m_drafting.store();
        host::Index index = store.firstLive(store.modelSpace());
        for (; n > 0; --n) {
            index = store.nextLive(store.at(index));
        }
        return L"(handent \"" + host::fromUtf8(host::formatHandle(store.at(index).handle)) + L"\")";
    }

    std::size_t count() const { return tests::wordsOf(m_drafting).size(); }
    Census kindsOf(std::size_t first, std::size_t length, int times) const {
        Census census;
        const std::vector<std::string> kinds = tests::kindsOf(m_drafting);
        for (std::size_t i = first; i < first + length; ++i) {
            census[kinds[i]] += times;
        }
        return census;
    }
    Drafting& drafting() { return m_drafting; }

  private:
    /// What is wrong with the drawing, once each: a copy has the defects of its source.
    std::set<std::string> errorsNow() const {
        std::set<std::string> errors;
        for (const host::Finding& finding : host::checkDrawing(m_drafting.store())) {
            if (finding.severity != host::Severity::Error) continue;
            const std::size_t name = finding.handle == 0 ? 0 : finding.text.find(':');
            errors.insert(finding.text.substr(name));
        }
        return errors;
    }

    Drafting m_drafting;
};

void live(Life& life) {
    const auto last = [&](std::size_t back) { return life.entity(life.count() - back); };
    life.step(L"VelmoGROUPMAKE " + life.entity(0) + L" " + life.entity(1) + L" " + life.entity(2) +
              L"\n\n");
    life.expectPickable();
    const Census three = life.kindsOf(life.count() - 4, 3, 1);
    const Census gone = life.kindsOf(life.count() - 4, 3, -1);
    for (const wchar_t* copy : {L"COPY 0,0 500,0\n\n", L"COPY 0,0 0,500\n\n"}) {
        life.step(L"PICK " + last(2) + L"\n");
        life.step(copy, three);
        life.expectPickable();
    }
    life.step(L"PICK " + last(3) + L"\n");
    life.step(L"MIRROR 0,0 1,1 N\n", three);
    life.step(L"PICK " + last(2) + L"\n");
    life.step(L"CUTCLIP\n", gone);
    life.step(L"PASTECLIP 7,7\n", three);
    life.step(L"PASTECLIP 9,9\n", three);
    life.expectPickable();
    life.step(L"PICK " + last(2) + L"\n");
    life.step(L"COPYCLIP\n");
    life.drafting().run(L"NEW\nPASTECLIP 0,0\nREGEN\n");
    EXPECT_EQ(tests::censusOf(life.drafting()), three) << "in another drawing";
    life.expectPickable();
    life.drafting().run(L"CLOSE\n");
    life.step(L"VelmoGROUPNOTACTIVE\n");
    life.step(L"ERASE " + last(2) + L"\n\n", life.kindsOf(life.count() - 2, 1, -1));
    const Census group = life.kindsOf(life.count() - 8, 3, -1);
    life.step(L"ERASE " + last(6) + L" " + last(7) + L" " + last(8) + L"\n\n", group);
    life.step(L"REGEN\n");
    life.expectSound();
    // An entity gets between the markers of the last group: its end marker moves behind it.
    const std::wstring end = last(1);
    life.drafting().run(L"CIRCLE 1,1 2\n");
    life.step(L"COPY " + end + L"\n\n0,0 0,0\n\n");
    life.step(L"ERASE " + end + L"\n\n");
    const std::size_t withMarkers = life.count();
    life.step(L"REGEN\n");
    EXPECT_EQ(life.count(), withMarkers - 2) << "the group is dissolved";
    life.expectSound();
    life.drafting().saveAndReopen();
    life.expectPickable();
}

TEST(Life, OfGroupsOnDrawingsOfOthers) {
    int lived = 0;
    for (const std::string& file : someDrawings()) {
        SCOPED_TRACE(file);
        Life life(file);
        if (!life.suits()) continue;
        live(life);
        if (testing::Test::HasFailure()) return;
        ++lived;
    }
    EXPECT_GE(lived, 10);
}

}  // namespace
