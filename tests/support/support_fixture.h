// What the tests of the support room share: a known moment, a temporary folder, a clean Windows.
//
// One suite runs on both systems. What they do not have in common is in support_system_posix.cpp
// (Windows stood in, its clock fixed) and support_system_windows.cpp (Windows for real).
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "host/control/effects.h"

class Support : public ::testing::Test {
  protected:
    /// 2013-01-15 16:19:18 local time, which is two hours ahead of UTC; an empty temporary folder;
    /// no switch set, nothing recorded. On real Windows it is now, and texts show that moment all
    /// the same: see `steadyTimes`.
    void SetUp() override;
    void TearDown() override;

    /// Initialises the library for `module()`, with the per-user switches given as DWORDs.
    void start(unsigned debugStartup, unsigned assertStartup, bool finaliseLog = true);
    /// The handle of a module whose file is "VelmoGroup.arx", which has the version resource.
    static void* module();
    /// The handle of a module with this file name in a temporary folder.
    static void* moduleNamed(const std::wstring& fileName);

    /// What was recorded since the last clear; times are steady.
    static std::vector<host::Effect> effects();
    static std::wstring effectText(host::EffectKind kind);
    static std::vector<std::wstring> effectTexts(host::EffectKind kind);
    static void clearEffects();
    /// Title, style and text of the one message box since the last clear, up to the call stack.
    static std::wstring onlyBox();
    /// The expressions of all message boxes.
    static std::vector<std::wstring> reportedExpressions();

    static std::filesystem::path temporaryFolder();
    static std::filesystem::path logFolder();
    static std::filesystem::path workingLog();
    static std::filesystem::path finalLog();
    static bool exists(const std::filesystem::path& path);
    static void writeFile(const std::filesystem::path& path, const std::string& bytes);
    static std::string readFile(const std::filesystem::path& path);
    /// The path as the module takes it.
    static std::wstring wide(const std::filesystem::path& path);
    /// The working log's lines behind its header; the encoding is checked on the way.
    static std::vector<std::wstring> loggedLines();

    /// Lets a second pass.
    static void letTimePass();
    /// Expects that the module slept so many milliseconds since the last call.
    void expectSlept(std::uint64_t milliseconds);
    /// Expects the log's name to tell machine start, first use and process.
    static void expectWorkingLogName(const std::wstring& name);

  private:
    void prepareSystem();
    void restoreSystem();
    /// Records what the system itself has of effects by now.
    static void collectEffects();
    /// A text whose lines may begin with the local time; on real Windows a time of this test
    /// becomes "[16:19:18]".
    static std::wstring steadyTimes(std::wstring text);

    std::uint64_t m_sleepsSeen = 0;
};

/// UTF-16LE with byte-order mark and CR LF, as text with line feeds; fails the test on anything
/// else.
std::wstring decodeLog(const std::string& bytes);
std::vector<std::wstring> linesOf(const std::wstring& text);
