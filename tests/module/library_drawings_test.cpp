// Drawings of others: each takes a group of everything in it and keeps it.
#include <algorithm>
#include <sstream>

#include "common/drafting.h"
#include "common/drawing_order.h"
#include "common/library.h"
#include "gtest/gtest.h"
#include "host/dxf/check/drawing_check.h"
#include "host/objectarx/database.h"
#include "host/text/text_codec.h"

namespace {

using tests::Drafting;

std::size_t errorsIn(const host::Store& store) {
    const std::vector<host::Finding> findings = host::checkDrawing(store);
    return static_cast<std::size_t>(std::count_if(
        findings.begin(), findings.end(),
        [](const host::Finding& finding) { return finding.severity == host::Severity::Error; }));
}

/// "begin(3) line* arc* circle* end" as "begin(3) * * * end": which entities is not the question.
std::string shape(const std::string& order) {
    std::string words;
    std::istringstream stream(order);
    for (std::string word; stream >> word;) {
        if (!words.empty()) words += ' ';
        words += word.back() == '*' ? "*" : word;
    }
    return words;
}

std::string groupOfAll(std::size_t members) {
    std::string words = "begin(" + std::to_string(members) + ")";
    for (std::size_t i = 0; i < members; ++i) {
        words += " *";
    }
    return words + " end";
}

TEST(LibraryDrawings, EachTakesAGroupOfAllItsEntitiesAndKeepsIt) {
    Drafting drafting;
    host::Session& session = drafting.session();
    const std::string saved = tests::scratchFolder() + "/saved.dxf";
    int grouped = 0;
    int tooOld = 0;
    for (const std::string& file : tests::libraryDrawings()) {
        SCOPED_TRACE(file);
        const host::Outcome opened = session.openDrawing(file);
        if (!opened) {
            EXPECT_NE(opened.error.find("$ACADVER"), std::string::npos) << opened.error;
            ++tooOld;
            continue;
        }
        const std::size_t errorsBefore = errorsIn(drafting.store());
        const std::string before = drafting.order();
        const std::size_t members =
            before.empty() ? 0 : 1 + std::count(before.begin(), before.end(), ' ');
        drafting.run(L"VelmoGROUPMAKE ALL\n\n");
        EXPECT_EQ(shape(drafting.order()), members > 0 ? groupOfAll(members) : "");
        ASSERT_TRUE(session.saveDrawing(saved));
        session.closeDrawing();
        ASSERT_TRUE(session.openDrawing(saved));
        EXPECT_EQ(shape(drafting.order()), members > 0 ? groupOfAll(members) : "");
        EXPECT_LE(errorsIn(drafting.store()), errorsBefore);
        session.closeDrawing();
        if (HasFailure()) break;
        ++grouped;
    }
    EXPECT_GT(grouped, 20 * tooOld);
}

}  // namespace
