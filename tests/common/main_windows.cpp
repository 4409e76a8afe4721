// Starts the tests on Windows: all of them but those listed here, which only Linux can show.
#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "common/only_on_linux.h"
#include "common/windows_watch.h"

namespace {

/// Whether the program holds a test of that name ("Suite.Test").
bool isTest(const std::string& name) {
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            if (name == std::string(suite.name()) + "." + suite.GetTestInfo(j)->name()) return true;
        }
    }
    return false;
}

/// No message box stays open: each is recorded and closed.
class BoxWatch : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { watchBoxes(); }
    void OnTestEnd(const testing::TestInfo&) override { endWatch(); }
};

}  // namespace

int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    std::string excluded;
    bool stale = false;
    for (const OnlyOnLinux& each : kOnlyOnLinux) {
        if (std::string(each.program) != TEST_PROGRAM) continue;
        std::cout << "only on Linux: " << each.test << ": " << each.reason << std::endl;
        excluded += std::string(excluded.empty() ? "" : ":") + each.test;
        if (isTest(each.test)) continue;
        std::cout << "no such test: " << each.test << std::endl;
        stale = true;
    }
    std::string filter = GTEST_FLAG_GET(filter);
    filter += (filter.find('-') == filter.npos ? "-" : ":") + excluded;
    if (!excluded.empty()) GTEST_FLAG_SET(filter, filter);
    testing::UnitTest::GetInstance()->listeners().Append(new BoxWatch);
    const int result = RUN_ALL_TESTS();
    return stale ? 1 : result;
}
