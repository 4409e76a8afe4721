// A process that ends in the middle of a save: what it leaves, and the saves that follow.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "drawing_text.h"

namespace dxf_tests {
namespace {

class KilledSave : public DrawingFiles {
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

TEST_F(KilledSave, LeavesTheOldDrawingOrTheNewOne) {
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

}  // namespace
}  // namespace dxf_tests
