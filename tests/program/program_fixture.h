// Runs the program as a person does: arguments and input in, output and exit status out.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "common/process.h"
#include "host/dxf/file/file_access.h"

/// What one run gave.
struct Result {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Works in a fresh folder for each test, which is the current one.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest() : m_home(std::filesystem::current_path()) {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = std::filesystem::temp_directory_path() /
                   ("velmo_" + std::to_string(host::processNumber()) + "_" + info->name());
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
        std::filesystem::current_path(m_folder);
    }
    ~ProgramTest() override {
        std::filesystem::current_path(m_home);
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

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
    static void write(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    static std::string contentOf(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

  private:
    std::filesystem::path m_home;
    std::filesystem::path m_folder;
};
