// Drawings of others: each takes a group of everything in it and keeps it.
#include <algorithm>

#include "common/census.h"
#include "common/checks.h"
#include "common/library.h"
#include "common/scratch.h"

namespace {

using tests::Drafting;

auto countOfErrors(const host::Store& store) {
    const std::string errors = tests::errorsIn(store);
    return std::count(errors.begin(), errors.end(), '\n');
}

/// Empty when everything in the drawing, and that is so many entities, is one sound group.
std::string faultOfGroup(const Drafting& drafting, std::size_t members) {
    const std::vector<std::string> words = tests::wordsOf(drafting);
    const auto records = std::count_if(words.begin(), words.end(),
                                       [](const std::string& word) { return word.back() == '*'; });
    const bool all = members == 0 ? words.empty()
                                  : words.size() == members + 2 && words.back() == "end" &&
                                        static_cast<std::size_t>(records) == members;
    return all ? tests::unsoundGroup(words) : drafting.order();
}

TEST(LibraryDrawings, EachTakesAGroupOfAllItsEntitiesAndKeepsIt) {
    Drafting drafting;
    host::Session& session = drafting.session();
    const tests::ScratchFolder folder;
    const std::string saved = folder.file("saved.dxf");
    int grouped = 0;
    int tooOld = 0;
    for (const std::string& file : tests::libraryDrawings()) {
        SCOPED_TRACE(file);
        const host::Outcome opened = session.openDrawing(file);
        if (!opened) {
            EXPECT_TRUE(tests::holds(opened.error, "$ACADVER"));
            ++tooOld;
            continue;
        }
        const auto errorsBefore = countOfErrors(drafting.store());
        const std::size_t members = tests::wordsOf(drafting).size();
        drafting.run(L"VelmoGROUPMAKE ALL\n\n");
        EXPECT_EQ(faultOfGroup(drafting, members), "");
        ASSERT_TRUE(session.saveDrawing(saved));
        session.closeDrawing();
        ASSERT_TRUE(session.openDrawing(saved));
        EXPECT_EQ(faultOfGroup(drafting, members), "");
        EXPECT_LE(countOfErrors(drafting.store()), errorsBefore);
        session.closeDrawing();
        if (HasFailure()) break;
        ++grouped;
    }
    EXPECT_GT(grouped, 20 * tooOld);
}

}  // namespace
