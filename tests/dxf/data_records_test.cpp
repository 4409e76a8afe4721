// Geometry that stands outside of its solid, in the section ACDSDATA: it follows clones.
#include "drawing_text.h"
#include "host/clone/deep_clone.h"
#include "host/clone/wblock_clone.h"

namespace tests {
namespace {

const std::string kHead = "0 SECTION|2 ACDSDATA|70 2|71 8\n";
const std::string kPicture = "0 ACDSSCHEMA|90 0|1 Picture|101 ACDSRECORD|95 0|90 2\n";
const std::string kSchemas = kPicture +
                             "0 ACDSSCHEMA|90 1|1 Solid|101 ACDSRECORD|95 1|90 2\n"
                             "0 ACDSSCHEMA|90 2|1 Mark|2 ID\n";
const std::string kPictureRecord = "0 ACDSRECORD|90 0|2 ID|320 62|310 AA\n";
const std::string kRecord = "0 ACDSRECORD|90 1|2 ID|320 39|310 BB\n";

class DataRecords : public DrawingFiles {
  protected:
    /// The small drawing with a section, and with the region 39.
    static std::string drawing(const std::string& section) {
        const std::string region =
            "0 REGION|5 39|330 17|100 AcDbEntity|8 0|100 AcDbModelerGeometry|290 0|2 {0}\n";
        return tagsOf(with(with(kDrawing, "0 TEXT|5 38", region + "0 TEXT|5 38"), "0 EOF",
                           section + "0 EOF"));
    }
    /// The section of the saved drawing.
    std::string savedSection(host::Store& store) const {
        const std::string text = saved(store);
        const std::size_t begin = text.find("  0\nSECTION\n  2\nACDSDATA\n");
        return begin == std::string::npos
                   ? "none"
                   : text.substr(begin, text.find("  0\nENDSEC\n", begin) - begin);
    }
};

TEST_F(DataRecords, ACloneHasItsOwnAndAnErasedSolidHasNone) {
    const std::string text = drawing(kHead + kSchemas + kRecord + kPictureRecord + "0 ENDSEC\n");
    const auto store = load(text);
    EXPECT_EQ(saved(*store), text);
    host::ObjectBody& region = *store->byHandle(0x39);
    host::CloneMap map;
    host::copyWithOwned(*store, {&region}, store->at(store->modelSpace()), map);
    const std::string clone = "0 ACDSRECORD|90 1|2 ID|320 100|310 BB\n";
    EXPECT_EQ(savedSection(*store), tagsOf(kHead + kSchemas + kRecord + kPictureRecord + clone));
    store->setErased(region, true);
    EXPECT_EQ(savedSection(*store), tagsOf(kHead + kSchemas + kPictureRecord + clone));
    EXPECT_TRUE(host::checkDrawing(*store).empty());
    store->setErased(region, false);
    EXPECT_EQ(savedSection(*store), tagsOf(kHead + kSchemas + kRecord + kPictureRecord + clone));
}

TEST_F(DataRecords, AnotherDrawingGetsTheSectionAndTheSchemasThatItLacks) {
    const auto from = load(drawing(kHead + kSchemas + kPictureRecord + kRecord + "0 ENDSEC\n"));
    const auto into = [&](host::Store& to) {
        host::wblockClone({from->byHandle(0x39)}, to, to.at(to.modelSpace()));
        return savedSection(to);
    };
    const auto bare = load(tagsOf(kDrawing));
    EXPECT_EQ(into(*bare), tagsOf(kHead + "0 ACDSSCHEMA|90 0|1 Solid|101 ACDSRECORD|95 0|90 1\n"
                                          "0 ACDSSCHEMA|90 1|1 Mark|2 ID\n"
                                          "0 ACDSRECORD|90 0|2 ID|320 100|310 BB\n"));
    const std::string mark = "0 ACDSSCHEMA|90 4|1 Mark|2 ID\n";
    const auto other = load(tagsOf(with(kDrawing, "0 EOF", kHead + mark + "0 ENDSEC\n0 EOF")));
    EXPECT_EQ(into(*other), tagsOf(kHead + mark +
                                   "0 ACDSSCHEMA|90 5|1 Solid|101 ACDSRECORD|95 5|90 4\n"
                                   "0 ACDSRECORD|90 5|2 ID|320 100|310 BB\n"));
}

TEST_F(DataRecords, SolidsWithoutAndRecordsOfNothingAreFound) {
    const std::string missing =
        "REGION 39: its geometry is missing: no record in ACDSDATA names it";
    EXPECT_EQ(findings(drawing("")), missing + "\n");
    const std::string astray = with(kRecord, "320 39", "320 99");
    EXPECT_EQ(findings(drawing(kHead + astray + "0 ENDSEC\n")),
              missing + "\nnote: a record in ACDSDATA names 99, which is not in the drawing\n");
}

}  // namespace
}  // namespace tests
