// Runs the program as a person does: arguments and input in, output and exit status out.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/checks.h"
#include "common/process.h"
#include "common/scratch.h"

using tests::contentOf;
using tests::holds;
using tests::write;

/// What one run gave.
struct Result {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Works in a fresh folder for each test, which is the current one.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest() { std::filesystem::current_path(m_folder.path()); }
    ~ProgramTest() override { std::filesystem::current_path(m_home); }

    /// Runs drafthost with arguments as a shell takes them.
    static Result drafthost(const std::string& arguments, const std::string& input = "") {
        write("input", input);
        const std::string command =
            std::string("\"" DRAFTHOST_FILE "\" ") + arguments + " <input >output 2>errors";
        const int status = runShell(command);
        return {status, contentOf("output"), contentOf("errors")};
    }
    /// The same with a script on standard input and without a module.
    static Result script(const std::string& text, const std::string& arguments = "") {
        return drafthost("--no-module -s - " + arguments, text);
    }

  private:
    tests::ScratchFolder m_folder;
    std::filesystem::path m_home = std::filesystem::current_path();
};
