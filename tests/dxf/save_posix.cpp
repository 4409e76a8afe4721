// Saves that end in the middle with their process, and targets that only POSIX has.
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdlib>

#include "drawing_text.h"

namespace tests {
namespace {

using host::saveDrawing;

class SavingOnPosix : public DrawingFiles {
  protected:
    /// Saves in a child that ends at the `killAt`-th changing call; true when it did.
    bool saveKilledAt(long killAt, host::Store& store) const {
        const pid_t child = ::fork();
        if (child == 0) {
            host::DxfError error;
            host::setFileFault(killAt, host::FileFault::ProcessEnds);
            const bool saved = saveDrawing(store, path("a.dxf"), error);
            std::_Exit(saved ? EXIT_SUCCESS : EXIT_FAILURE);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        const bool killed = WEXITSTATUS(status) == host::kKilledStatus;
        EXPECT_TRUE(killed || WEXITSTATUS(status) == EXIT_SUCCESS);
        return killed;
    }
};

TEST_F(SavingOnPosix, LeavesTheOldDrawingOrTheNewOne) {
    const std::string text = largeDrawing();
    const auto store = load(text);
    std::filesystem::remove(path("load.dxf"));
    long killAt = 1;
    bool killed = true;
    int found = 0;
    for (; killed && killAt < 100; ++killAt) {
        SCOPED_TRACE(killAt);
        write("a.dxf", "old");
        write("a.bak", "older");
        killed = saveKilledAt(killAt, *store);
        const std::string left = read("a.dxf");
        const bool isNew = left == text;
        found += isNew ? 1 : 0;
        EXPECT_TRUE(isNew || left == "old");
        const std::string backup = read("a.bak");
        EXPECT_TRUE(backup == "old" || (backup == "older" && !isNew)) << backup;

        host::DxfError error;
        ASSERT_TRUE(saveDrawing(*store, path("a.dxf"), error)) << error.message();
        EXPECT_TRUE(read("a.dxf") == text);
        EXPECT_TRUE(read("a.bak") == left);
        for (const auto& entry : std::filesystem::directory_iterator(path(""))) {
            std::filesystem::remove(entry.path());
        }
    }
    // create, permissions, four writes, flush, close, link, two renames, flush of the folder
    EXPECT_EQ(killAt - 2, 12);
    EXPECT_EQ(found, 2);  // at the flush of the folder, and with no call left
}

TEST_F(SavingOnPosix, PermissionsAndLinksStay) {
    const auto store = load(tagsOf(kDrawing));
    ::chmod(write("real.dxf", "old").c_str(), 0640);
    std::filesystem::create_symlink("real.dxf", path("link.dxf"));
    // Not every file system has them.
    const bool tagged = ::setxattr(path("real.dxf").c_str(), "user.note", "n", 1, 0) == 0;
    write(".dxf-999999999-1.tmp", "of a process that is gone");
    write(".dxf-" + std::to_string(::getppid()) + "-1.tmp", "of one that saves");
    host::DxfError error;
    ASSERT_TRUE(saveDrawing(*store, path("link.dxf"), error)) << error.message();
    EXPECT_EQ(listing(),
              ".dxf-" + std::to_string(::getppid()) + "-1.tmp link.dxf load.dxf real.bak real.dxf");
    EXPECT_EQ(::getxattr(path("real.dxf").c_str(), "user.note", nullptr, 0), tagged ? 1 : -1);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.dxf")));
    EXPECT_EQ(read("real.dxf"), tagsOf(kDrawing));
    struct stat status;
    ASSERT_EQ(::stat(path("real.dxf").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST_F(SavingOnPosix, DevicesAreNoTarget) {
    const auto store = load(tagsOf(kDrawing));
    host::DxfError error;
    EXPECT_FALSE(saveDrawing(*store, "/dev/full", error));
    EXPECT_EQ(error.text,
              "cannot be written: Is not a regular file; nothing was changed, save elsewhere");
}

}  // namespace
}  // namespace tests
