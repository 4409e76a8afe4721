// What tests of every folder look for: parts of texts, faults of modules, damage of drawings.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/control/accounting.h"
#include "host/dxf/check/drawing_check.h"

namespace tests {

/// Whether a text has another one in it; a failure shows the text.
template <typename Char>
testing::AssertionResult holds(const std::basic_string<Char>& text,
                               const std::common_type_t<std::basic_string<Char>>& part) {
    if (text.find(part) != text.npos) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(part) << " is not in " << testing::PrintToString(text);
}

/// How often a text has another one in it.
inline int countOf(const std::string& part, const std::string& text) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size())
        ++count;
    return count;
}

/// The text with every occurrence of a part replaced.
inline std::string replaced(std::string text, const std::string& part, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += by.size())
        text.replace(at, part.size(), by);
    return text;
}

/// The text with the first occurrence of a part, which has to be there, replaced.
inline std::string with(std::string text, const std::string& part, const std::string& by) {
    const std::size_t at = text.find(part);
    EXPECT_NE(at, text.npos) << part;
    return at == text.npos ? text : text.replace(at, part.size(), by);
}

/// Faults of modules since the last call, which are thereby expected.
inline std::vector<std::string> takeFaults() {
    const std::vector<std::string> faults = host::moduleFaults();
    host::clearModuleFaults();
    return faults;
}

/// The errors that the check finds in a drawing, one a line; empty for a sound one.
inline std::string errorsIn(const host::Store& store) {
    std::string text;
    for (const host::Finding& finding : host::checkDrawing(store))
        if (finding.severity == host::Severity::Error) text += finding.text + "\n";
    return text;
}

}  // namespace tests
