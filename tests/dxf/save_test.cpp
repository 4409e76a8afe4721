// Saving: the old drawing or the new one at any moment, backups, references to erased objects.
#include <algorithm>

#include "drawing_text.h"
#include "host/objects/erasing.h"
#include "host/tags/tags.h"

namespace tests {
namespace {

using host::saveDrawing;

class Saving : public DrawingFiles {
  protected:
    /// Groups of the saved drawing, in one line, from an object's handle to the next object.
    std::string object(const std::string& handle) const {
        const std::string text = "\n" + read("saved.dxf");
        const std::size_t begin = text.find("\n  5\n" + handle + "\n");
        if (begin == std::string::npos) return "none";
        std::string tags = text.substr(begin + 1, text.find("\n  0\n", begin) - begin - 1);
        std::replace(tags.begin(), tags.end(), '\n', ' ');
        return tags;
    }
    void erase(host::Store& store, std::uint64_t handle) const {
        host::eraseWithOwned(*store.byHandle(handle));
    }
};

TEST_F(Saving, AFailureAtAnyCallLeavesTheTargetUntouched) {
    // create, permissions, writes, flush, close, link, rename to .bak, rename to the target
    const std::pair<std::string, long> cases[] = {{tagsOf(kDrawing), 8}, {largeDrawing(), 11}};
    for (const auto& [text, calls] : cases) {
        const auto store = load(text);
        std::filesystem::remove(path("load.dxf"));
        write("a.dxf", "old");
        write("a.bak", "older");
        host::DxfError error;
        long failAt = 1;
        for (; failAt < 100; ++failAt) {
            host::setFileFault(failAt);
            if (saveDrawing(*store, path("a.dxf"), error)) break;
            EXPECT_EQ(error.text,
                      "cannot be written: No space left on device; nothing was changed, "
                      "save elsewhere");
            EXPECT_EQ(read("a.dxf"), "old");
            // The last call of all gives the new drawing its name.
            EXPECT_EQ(read("a.bak"), failAt < calls ? "older" : "old");
            EXPECT_EQ(listing(), "a.bak a.dxf") << failAt;
        }
        EXPECT_EQ(failAt, calls + 1);
        EXPECT_TRUE(read("a.dxf") == text);
        EXPECT_EQ(read("a.bak"), "old");
        host::setFileFault(0);
    }
}

TEST_F(Saving, TheBackupHasTheNameOfTheFile) {
    EXPECT_EQ(host::backupPath("/x.y/plan.dxf"), "/x.y/plan.bak");
    EXPECT_EQ(host::backupPath("/x.y/plan"), "/x.y/plan.bak");
    EXPECT_EQ(host::backupPath("plan.BAK"), "plan.BAK.bak");
}

TEST_F(Saving, TargetsThatCannotBeReplacedAreTold) {
    const auto store = load(tagsOf(kDrawing));
    host::DxfError error;
    EXPECT_FALSE(saveDrawing(*store, path(""), error));
    EXPECT_EQ(error.text, "cannot be written: Is a directory; nothing was changed, save elsewhere");
    EXPECT_FALSE(saveDrawing(*store, path("no/such.dxf"), error));
    EXPECT_EQ(error.text,
              "cannot be written: No such file or directory; nothing was changed, save elsewhere");
}

TEST_F(Saving, ATooSmallHandleSeedIsCorrected) {
    const auto store = load(tagsOf(with(kDrawing, "5 100", "5 10")));
    EXPECT_EQ(saved(*store), tagsOf(with(kDrawing, "5 100", "5 63")));
}

TEST_F(Saving, WhatIsSavedOpensAgain) {
    for (const char* highest : {"FFFFFFFEFFFFFFFD", "FFFFFFFEFFFFFFFF"}) {
        const auto store =
            load(tagsOf(with(kDrawing, "0 CIRCLE|5 26", std::string("0 CIRCLE|5 ") + highest)));
        for (int i = 0; i < 3; ++i)
            store->appendChild(store->modelSpace(),
                               store->duplicate(*store->byHandle(0x38), store->modelSpace()));
        EXPECT_EQ(findings(saved(*store)), "");
        const std::string handle = highest;
        erase(*store, host::parseHandle(handle).value());
        EXPECT_EQ(findings(saved(*store)), "");
    }
    const std::string beyond = tagsOf(with(kDrawing, "5 100", "5 FFFFFFFF00000000"));
    EXPECT_EQ(findings(beyond),
              "$HANDSEED FFFFFFFF00000000 leaves no room: handles end at FFFFFFFEFFFFFFFF\n");
    EXPECT_EQ(saved(*load(beyond)), tagsOf(with(kDrawing, "5 100", "5 63")));
    for (const std::size_t length : {host::kLongestValue, host::kLongestValue + 1}) {
        const auto store = load(tagsOf(kDrawing));
        host::ObjectBody& text = *store->byHandle(0x38);
        text.setTags(with(std::string(text.tags()), "  text  ", std::string(length, 'x')));
        host::DxfError error;
        const bool fits = length == host::kLongestValue;
        EXPECT_EQ(saveDrawing(*store, path("long.dxf"), error), fits);
        EXPECT_EQ(error.text, fits ? ""
                                   : "cannot be written: group 1 of TEXT 38 is longer than 1048575 "
                                     "bytes; nothing was changed, shorten it");
        EXPECT_EQ(findings(read("long.dxf")), "");
    }
}

TEST_F(Saving, AnObjectOutlivesAnOwnerThatDoesNotHoldIt) {
    const std::string foreign =
        tagsOf(with(kDrawing, "0 LAYOUT|5 62|330 42", "0 LAYOUT|5 62|330 30"));
    const std::string note =
        "note: LAYOUT 62: the owner is LINE 30, which does not hold it, but DICTIONARY 42 does\n";
    EXPECT_EQ(findings(foreign), note);
    const auto store = load(foreign);
    EXPECT_EQ(findings(saved(*store)), note);
    erase(*store, 0x30);
    EXPECT_EQ(findings(saved(*store)), "");
}

TEST_F(Saving, NothingPointsAtErasedObjects) {
    std::string text =
        with(kDrawing, "0 TEXT|5 38|", "0 TEXT|5 38|102 {ACAD_REACTORS|330 43|102 }|");
    text = with(text, "0 SEQEND|5 37|330 35|100 AcDbEntity|8 0\n",
                "0 SEQEND|5 37|330 35|100 AcDbEntity|8 0\n"
                "0 HATCH|5 39|330 17|100 AcDbEntity|8 0|100 AcDbHatch|71 1|97 2|330 30|330 31\n");
    text = with(
        text, "0 XRECORD",
        "0 SORTENTSTABLE|5 52|330 40|100 AcDbSortentsTable|331 30|5 30|331 31|5 31\n0 XRECORD");
    const auto store = load(tagsOf(text));
    erase(*store, 0x30);
    erase(*store, 0x43);
    saved(*store);
    EXPECT_EQ(object("30") + object("50") + object("51") + object("43"), "nonenonenonenone");
    EXPECT_FALSE(holds(object("38"), "102"));
    EXPECT_EQ(object("39").substr(object("39").find(" 71")), " 71 0  97 1 330 31");
    EXPECT_EQ(object("52").substr(object("52").find("331")), "331 31   5 31");
    EXPECT_EQ(object("41"), "  5 41 330 40 100 AcDbDictionary");
}

TEST_F(Saving, OtherPointersAtErasedObjectsBecomeZero) {
    const std::string text = with(kDrawing, "100 AcDbText|1 A", "100 AcDbText|1 A|340 31|1005 31");
    const auto store = load(tagsOf(text));
    erase(*store, 0x31);
    saved(*store);
    EXPECT_TRUE(holds(object("33"), "340 0 1005 0"));
    erase(*store, 0x38);
    const std::string file = saved(*store);
    EXPECT_TRUE(holds(object("51"), "330 0"));
    EXPECT_EQ(object("43"), "  5 43 330 41 100 AcDbGroup  70 0 340 30");
    EXPECT_EQ(findings(with(file, "340\n0\n1005\n0\n", "")), "");
}

}  // namespace
}  // namespace tests
