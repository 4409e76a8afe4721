// The logging object and its three checks.
#include <memory>

#include "support_fixture.h"
#include "VeLogging.h"

namespace {

std::wstring report(const wchar_t* expression, int line) {
    return std::wstring(
               L"Assertion Failure: VelmoGroup\n16\nModule : <VelmoGroup>\nAssertion : <") +
           expression + L">\nFile : <VeLogging>\nLine : " + std::to_wstring(line);
}

TEST_F(Support, LoggingFromCreationToDestruction) {
    start(0, 1);
    host::clearEffects();
    logCommandUse(L"Active");
    createLogging(L"Pelltrix::Corvinstrand", L"1.0.0.0");
    ASSERT_NE(G_pLoggingObject, nullptr);
    EXPECT_NE(G_pLoggingObject->m_pLogSession, nullptr);
    logCommandUse(L"Active");
    destroyLogging();
    EXPECT_EQ(G_pLoggingObject, nullptr);
    logCommandUse(L"Active");
    destroyLogging();
    EXPECT_TRUE(host::effects().empty());
}

TEST_F(Support, ASecondLoggingObjectOrAMissingSessionIsReported) {
    start(0, 1);
    createLogging(L"a", L"1");
    const std::unique_ptr<CVelmoLogging> first(G_pLoggingObject);
    createLogging(L"b", L"2");
    EXPECT_EQ(onlyBox(), report(L"G_pLoggingObject == NULL", 21));
    EXPECT_NE(G_pLoggingObject, first.get()) << "the second takes over";
    G_pLoggingObject->m_pLogSession.reset();
    host::clearEffects();
    logCommandUse(L"Remove Member");
    EXPECT_EQ(onlyBox(), report(L"m_pLogSession != NULL", 69));
    host::clearEffects();
    destroyLogging();
    EXPECT_EQ(onlyBox(), report(L"m_pLogSession != NULL", 62));
}

}  // namespace
