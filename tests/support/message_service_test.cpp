// The message service: what reaches the command line, in which pieces, and what goes elsewhere.
#include "message_service.h"

#include "diagnostic_log.h"
#include "host/control/fake_windows.h"
#include "support_fixture.h"

namespace {

using host::EffectKind;

/// The prints of one message, as their lengths.
std::vector<std::size_t> pieces(const std::wstring& text) {
    host::clearEffects();
    messageService(L"%s", text.c_str());
    std::vector<std::size_t> lengths;
    for (const std::wstring& piece : host::effectTexts(EffectKind::CommandLine)) {
        lengths.push_back(piece.size());
    }
    EXPECT_EQ(host::effects().size(), lengths.size()) << "the command line only";
    return lengths;
}

TEST_F(Support, LongMessagesArePrintedInPieces) {
    const std::wstring text(299, L'x');
    EXPECT_EQ(pieces(text + L"\n"), (std::vector<std::size_t>{132, 132, 36}));
    EXPECT_EQ(host::effectText(EffectKind::CommandLine), text + L"\n");
    EXPECT_EQ(pieces(text + L"\n\n\n"), (std::vector<std::size_t>{132, 132, 36}));
    EXPECT_EQ(pieces(std::wstring(131, L'x')), (std::vector<std::size_t>{132}));
    EXPECT_EQ(pieces(std::wstring(132, L'x')), (std::vector<std::size_t>{132, 1}));
    // Two UTF-16 units of one character stay together.
    for (const int first : {0xD800, 0xDBFF}) {
        const std::wstring pair = {wchar_t(first), wchar_t(0xDD1E)};
        EXPECT_EQ(pieces(std::wstring(131, L'x') + pair), (std::vector<std::size_t>{131, 3}));
        EXPECT_EQ(pieces(std::wstring(130, L'x') + pair), (std::vector<std::size_t>{132, 1}));
    }
}

TEST_F(Support, MessagesHaveOneNewline) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"text", L"text\n"},
        {L"\n\ntext\n\n\n", L"text\n"},
        {L"a\n\nb\n", L"a\n\nb\n"},
        {L"\n \U0001D11E ", L" \U0001D11E \n"},
        {L"\n\n", L"\n"},
        {L"", L"\n"},
        {L"x", L"x\n"},
        {L"100 %d%s", L"100 %d%s\n"}};
    for (const auto& [text, expected] : cases) {
        pieces(text);
        EXPECT_EQ(host::effectText(EffectKind::CommandLine), expected);
    }
}

TEST_F(Support, MessagesGoToADebuggerAndWithDebugStartupToTheLog) {
    host::setDebuggerPresent(true);
    messageService(L"\ntext\n\n");
    using Effects = std::vector<host::Effect>;
    EXPECT_EQ(host::effects(), (Effects{{EffectKind::DebugOutput, L"[16:19:18] \ntext\n\n"},
                                        {EffectKind::CommandLine, L"text\n"}}));
    start(1, 0);
    messageService(L"the log begins");
    host::clearEffects();
    messageService(L"more\n");
    const std::wstring log = workingLogName();
    EXPECT_EQ(host::effects(), (Effects{{EffectKind::DebugOutput, L"[16:19:18] more\n"},
                                        {EffectKind::FileWrite, log},
                                        {EffectKind::FileWrite, log},
                                        {EffectKind::CommandLine, L"more\n"}}));
    EXPECT_EQ(loggedLines().back(), L"[16:19:18] more");
}

}  // namespace
