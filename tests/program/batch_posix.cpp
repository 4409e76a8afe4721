// What can end a run over many drawings early: a crash in one, and Ctrl+C. Links and modes.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "program_fixture.h"

namespace {

using BatchEndTest = ProgramTest;

TEST_F(BatchEndTest, ACrashEndsOneDrawingAlone) {
    ASSERT_EQ(script("SAVEAS a.dxf\nSAVEAS dies.dxf\nSAVEAS z.dxf\n").status, 0);
    setVariable("PROBE", "abort");
    const Result run =
        drafthost("-m \"" PROBE_FILE "\" -s - --output-dir out a.dxf dies.dxf z.dxf", "REGEN\n");
    setVariable("PROBE", nullptr);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "drafthost: failed: dies.dxf: its process ended by a signal: Aborted\n"
              "drafthost: 3 drawings, 1 failed\n");
    EXPECT_TRUE(std::filesystem::exists("out/z.dxf"));
    EXPECT_FALSE(std::filesystem::exists("out/dies.dxf"));
}

TEST_F(BatchEndTest, ControlCLeavesWholeDrawingsAndStops) {
    ASSERT_EQ(script("LINE 0,0 1,1\n\nSAVEAS 0.dxf\n").status, 0);
    std::string files;
    for (int i = 0; i < 400; ++i) {
        files += " " + std::to_string(i) + ".dxf";
        if (i > 0) std::filesystem::copy("0.dxf", std::to_string(i) + ".dxf");
    }
    write("x.scr", "REGEN\n");
    const std::string command =
        "exec \"" DRAFTHOST_FILE "\" --no-module -q -j 2 -s x.scr --output-dir out" + files;
    const pid_t child = fork();
    if (child == 0) {
        if (freopen("errors", "w", stderr) != nullptr)
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    pid_t ended = 0;
    while (!std::filesystem::exists("out/3.dxf") && ended == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        ended = waitpid(child, &status, WNOHANG);
    }
    ASSERT_EQ(ended, 0) << "before Ctrl+C: " << contentOf("errors");
    kill(child, SIGINT);
    waitpid(child, &status, 0);
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 130);
    EXPECT_TRUE(holds(contentOf("errors"), "drafthost: interrupted: "));
    int saved = 0;
    for (const auto& entry : std::filesystem::directory_iterator("out")) {
        EXPECT_EQ(entry.path().extension(), ".dxf");
        EXPECT_EQ(contentOf(entry.path()).substr(contentOf("0.dxf").size() - 4), "EOF\n");
        ++saved;
    }
    EXPECT_LT(saved, 400);
}

TEST_F(BatchEndTest, PicturesFollowLinksToPicturesAndKeepTheMode) {
    ASSERT_EQ(script("SAVEAS a.dxf\nPICTURE a\n").status, 0);
    const std::string drawing = contentOf("a.dxf"), picture = contentOf("a.svg");
    write("a.svg", "older");
    std::filesystem::permissions("a.svg", std::filesystem::perms(0640));
    std::filesystem::create_symlink("a.svg", "to_picture.svg");
    std::filesystem::create_symlink("a.dxf", "to_drawing.svg");
    std::filesystem::create_symlink("/dev/null", "device.svg");
    EXPECT_EQ(drafthost("--picture to_picture.svg a.dxf").status, 0);
    EXPECT_EQ(drafthost("--picture to_drawing.svg a.dxf").status, 4);
    EXPECT_EQ(drafthost("--picture device.svg a.dxf").status, 4);
    EXPECT_EQ(contentOf("a.svg"), picture);
    EXPECT_EQ(contentOf("a.dxf"), drawing);
    EXPECT_EQ(std::filesystem::status("a.svg").permissions(), std::filesystem::perms(0640));
}

}  // namespace
