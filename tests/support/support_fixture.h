// What the tests of the support room share: a fixed moment, a temporary folder, a clean Windows.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "common/checks.h"
#include "common/scratch.h"
#include "host/control/effects.h"

using tests::contentOf;
using tests::holds;
using Lines = std::vector<std::wstring>;

class Support : public ::testing::Test {
  protected:
    /// 2013-01-15 16:19:18 local time, which is two hours ahead of UTC; an empty temporary folder;
    /// no switch set, nothing recorded.
    void SetUp() override;
    void TearDown() override;

    /// Initialises the library for `module()`, with the per-user switches given as DWORDs.
    void start(unsigned debugStartup, unsigned assertStartup, bool finaliseLog = true);
    /// The handle of a module whose file is "VelmoGroup.arx", which has the version resource.
    static void* module();
    static void setRegistryText(const std::wstring& key, const wchar_t* name,
                                const std::wstring& text);

    /// Title, style and text of the one message box since the last clear, up to the call stack.
    static std::wstring onlyBox();
    /// What happened since the last clear, in order.
    static std::vector<host::EffectKind> effectKinds();
    /// The expressions of all message boxes.
    static Lines reportedExpressions();

    /// Has letters beyond ASCII in its name.
    std::filesystem::path temporaryFolder() const;
    std::filesystem::path logFolder() const;
    std::filesystem::path workingLog() const;
    std::filesystem::path finalLog() const;
    /// Writes a file, with its folder.
    static void writeFile(const std::filesystem::path& path, const std::string& bytes);
    /// The path as the module takes it.
    static std::wstring wide(const std::filesystem::path& path);
    /// The working log's lines behind its header; the encoding is checked on the way.
    Lines loggedLines() const;

    /// Milliseconds that the module slept since the last call.
    std::uint64_t slept();

  private:
    tests::ScratchFolder m_folder;
    std::uint64_t m_sleepsSeen = 0;
};

/// UTF-16LE with byte-order mark and CR LF, as text with line feeds; fails the test on anything
/// else.
std::wstring decodeLog(const std::string& bytes);
Lines linesOf(const std::wstring& text);
