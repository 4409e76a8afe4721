// What the tests of the support room share: a fixed moment, a temporary folder, a clean Windows.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/control/effects.h"

class Support : public ::testing::Test {
  protected:
    /// 2013-01-15 16:19:18 local time, which is two hours ahead of UTC; an empty temporary folder;
    /// no switch set, nothing recorded.
    void SetUp() override;
    void TearDown() override;

    /// Initialises the library for `module()`, with the per-user switches given as DWORDs.
    void start(unsigned debugStartup, unsigned assertStartup, bool finaliseLog = true);
    /// The handle of a module whose file is "VelmoGroup.arx".
    static void* module();

    /// Title, style and text of the one message box since the last clear, up to the call stack.
    static std::wstring onlyBox();
    /// The expressions of all message boxes.
    static std::vector<std::wstring> reportedExpressions();

    /// The temporary folder for this system's calls, and for Windows'.
    static std::string temporaryFolder();
    static std::wstring wideTemporaryFolder();
    static std::string logFolder();
    static std::string workingLogFile();
    static std::string workingLog();
    static std::string finalLog();
    static bool exists(const std::string& path);
    static void writeFile(const std::string& path, const std::string& bytes);
    static std::string readFile(const std::string& path);
    /// The working log's lines behind its header; the encoding is checked on the way.
    static std::vector<std::wstring> loggedLines();
};

/// UTF-16LE with byte-order mark and CR LF, as text with line feeds; fails the test on anything
/// else.
std::wstring decodeLog(const std::string& bytes);
std::vector<std::wstring> linesOf(const std::wstring& text);
