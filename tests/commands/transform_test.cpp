// Moving and mirroring: what becomes of the groups, there and back, and what is refused.
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "commands/commands_fixture.h"
#include "host/control/switches.h"
#include "host/tags/tag_codes.h"
#include "host/tags/tags.h"

namespace tests {
namespace {

using namespace host;

struct Number {
    int code;
    double value;
    bool operator<(const Number& other) const { return code < other.code; }
};

/// The numbers of an object in the order of their codes, without those that say what their absence
/// says too; angles between 0 and a turn.
std::vector<Number> numbersOf(const ObjectBody& body) {
    std::vector<Number> numbers;
    TagReader reader(body.tags());
    for (Tag tag; reader.next(tag);) {
        const TagType type = tagTypeOf(tag.code);
        const bool real =
            type == TagType::Point || type == TagType::Coordinate || type == TagType::Real;
        if (!real && type != TagType::Int16) continue;
        double value = parseReal(tag.value).value_or(0);
        const bool angle = tag.code >= 50 && tag.code <= 53;
        if (angle) value = std::remainder(value, 360.0);
        const double usual = tag.code == 230 || (tag.code == 42 && body.type() == "INSERT");
        const bool mayBeAbsent = (angle && body.type() != "ARC") || tag.code == 71 ||
                                 tag.code / 10 == 21 || tag.code == 220 || tag.code == 230 ||
                                 tag.code == 42;
        if (!mayBeAbsent || std::fabs(value - usual) > 1e-9) numbers.push_back({tag.code, value});
    }
    std::stable_sort(numbers.begin(), numbers.end());
    return numbers;
}

using Numbers = std::vector<std::vector<Number>>;

Numbers allNumbers(const Store& store) {
    Numbers all;
    for (Index at = 1; at <= store.count(); ++at) {
        const bool counts = !store.at(at).erased && isEntityKind(store.at(at).kind);
        all.push_back(counts ? numbersOf(store.at(at)) : std::vector<Number>());
    }
    return all;
}

/// Where two drawings differ; a rotation by 50 may have become the direction 11 of an MTEXT.
std::string difference(const Store& store, const Numbers& before, const Numbers& now) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        const ObjectBody& body = store.at(static_cast<Index>(i + 1));
        if (body.type() == "MTEXT" && before[i].size() != now[i].size()) continue;
        bool same = before[i].size() == now[i].size();
        for (std::size_t k = 0; same && k < now[i].size(); ++k) {
            const double size = 1 + std::fabs(before[i][k].value);
            same = before[i][k].code == now[i][k].code &&
                   std::fabs(before[i][k].value - now[i][k].value) < 1e-9 * size;
        }
        if (!same) return std::string(body.type()) + " " + formatHandle(body.handle);
    }
    return "";
}

class TransformTest : public CommandsTest {
  protected:
    void mirrorTwice(const std::string& file) {
        ASSERT_TRUE(session.openDrawing(file)) << file;
        if (entities().empty()) {
            session.closeDrawing();
            return;
        }
        const Numbers before = allNumbers(store());
        const std::wstring mirror = L"MIRROR ALL\n\n1.5,2 7,-3.25 Y\n";
        ASSERT_EQ(run(mirror), CommandStatus::Done) << file << shown();
        EXPECT_NE(difference(store(), before, allNumbers(store())), "") << file;
        ASSERT_EQ(run(mirror), CommandStatus::Done) << file;
        EXPECT_EQ(difference(store(), before, allNumbers(store())), "") << file;
        session.closeDrawing();
        clearEffects();
    }
};

TEST_F(TransformTest, MirroredTwiceEveryEntityIsAsBefore) {
    mirrorTwice(TESTS_FOLDER "/commands/every_type.dxf");
    mirrorTwice(SAMPLES_FOLDER "/plan.dxf");
    int count = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator("/usr/share/librecad/library"))
        if (entry.path().extension() == ".dxf" && ++count % 8 == 0)
            mirrorTwice(entry.path().string());
    EXPECT_GT(count, 1000) << "install librecad-data";
}

TEST_F(TransformTest, MirroringAtTheYAxis) {
    session.newDrawing();
    add("ARC", "100 AcDbCircle|10 3.0|20 4.0|30 1.0|40 2.0|100 AcDbArc|50 350.0|51 80.0");
    add("LWPOLYLINE", "100 AcDbPolyline|90 2|70 0|10 1.0|20 2.0|42 0.5|10 3.0|20 2.0");
    add("TEXT", "100 AcDbText|10 5.0|20 1.0|30 0.0|40 1.0|1 x|50 30.0|100 AcDbText");
    add("INSERT", "100 AcDbBlockReference|2 *Model_Space|10 1.0|20 1.0|30 0.0|50 10.0|45 3.0");
    add("ELLIPSE",
        "100 AcDbEllipse|10 1.0|20 0.0|30 0.0|11 2.0|21 1.0|31 0.0|40 0.5|41 1.0|42 2.0");
    ASSERT_EQ(run(L"MIRROR ALL\n\n0,0 0,1 Y\n"), CommandStatus::Done);
    EXPECT_EQ(groups(entity("ARC"), {10, 20, 30, 50, 51}), "-3.0 4.0 1.0 100.0 190.0");
    EXPECT_EQ(groups(entity("LWPOLYLINE"), {10, 20, 42}), "-1.0 2.0 -0.5");
    EXPECT_EQ(groups(entity("TEXT"), {10, 20, 50, 71}), "-5.0 1.0 150.0 4");
    EXPECT_EQ(groups(entity("INSERT"), {10, 50, 41, 42, 45}), "-1.0 170.0 - -1.0 -3.0");
    EXPECT_EQ(groups(entity("ELLIPSE"), {10, 11, 21}), "-1.0 -2.0 1.0");
    EXPECT_NEAR(*parseReal(groups(entity("ELLIPSE"), {41})), 2 * M_PI - 2, 1e-12);
    run(L"ERASE ALL\n\n");
}

TEST_F(TransformTest, ObjectCoordinatesFollowTheWorldsDisplacement) {
    session.newDrawing();
    add("CIRCLE",
        "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 1.0|210 0.0|220 0.0|230 -1.0|1001 ACAD|"
        "1011 1.0|1021 2.0|1031 0.0");
    add("LWPOLYLINE", "100 AcDbPolyline|90 1|70 0|10 1.0|20 2.0");
    run(L"MOVE ALL\n\n10,20,30\n\n");
    EXPECT_EQ(groups(entity("CIRCLE"), {10, 20, 30, 1011, 1021, 1031}),
              "-9.0 22.0 -27.0 11.0 22.0 30.0");
    EXPECT_EQ(groups(entity("LWPOLYLINE"), {10, 20, 38}), "11.0 22.0 30.0");
}

/// What cannot be done to one entity is done to none, and the reason is told.
TEST_F(TransformTest, RefusalsChangeNothing) {
    session.newDrawing();
    run(L"LINE 0,0 1,1\n\nCOPYCLIP L\n\n");
    const std::string handle = formatHandle(add("3DSOLID", "100 AcDbModelerGeometry").handle);
    add("VIEWPORT", "100 AcDbViewport|10 1.0|20 1.0|30 0.0");
    add("LINE", "100 AcDbLine|10 x|20 1.0|30 0.0|11 1.0|21 1.0|31 0.0");
    const std::string before = stateOf(store());
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"MOVE ALL\n\n1,1 2,2\n", "moved"},
        {L"COPY ALL\n\n1,1 2,2\n\n", "copied"},
        {L"MIRROR ALL\n\n1,1 2,2 Y\n", "mirrored"},
        {L"MIRROR ALL\n\n1,1 2,2 N\n", "mirrored"},
        {L"COPYCLIP ALL\n\n", "copied"},
        {L"CUTCLIP ALL\n\n", "cut"},
    };
    switches().newestFirst = false;
    for (const auto& [script, verb] : cases) {
        EXPECT_EQ(run(script), CommandStatus::Failed);
        EXPECT_NE(shown().find("3DSOLID " + handle + " cannot be " + verb +
                               " here; leave it out of the selection."),
                  std::string::npos);
        EXPECT_EQ(stateOf(store()), before);
    }
    run(L"ERASE (handent \"" + std::wstring(handle.begin(), handle.end()) + L"\")\n\n");
    EXPECT_EQ(run(L"MIRROR ALL\n\n1,1 2,2 Y\n"), CommandStatus::Failed);
    EXPECT_NE(shown().find("VIEWPORT"), std::string::npos);
    EXPECT_EQ(run(L"MOVE ALL\n\n1,1 2,2\n"), CommandStatus::Failed);
    EXPECT_NE(shown().find("group 10 is or becomes no finite number"), std::string::npos);
    run(L"ERASE L\n\nERASE L\n\nPASTECLIP 5,5\n");
    EXPECT_EQ(entities(), "LINE LINE");
}

/// Each dimension shows its own block, also when it is a copy.
TEST_F(TransformTest, ADimensionsPictureGoesAlong) {
    session.openDrawing(TESTS_FOLDER "/commands/every_type.dxf");
    const ObjectBody& first = entity("DIMENSION");
    const std::wstring pick =
        L"(handent \"" + std::wstring(store().decode(formatHandle(first.handle))) + L"\")";
    const std::string block = groups(first, {2});
    const auto lineOf = [&](const std::string& name) {
        const ObjectBody* record = store().symbol("BLOCK_RECORD", store().decode(name));
        return groups(store().at(store().firstLive(record->self)), {10, 20});
    };
    const std::string line = lineOf(block);
    run(L"COPY " + pick + L"\n\n0,0 100,50\n\n");
    const ObjectBody& copy = store().at(store().lastLive(store().modelSpace()));
    EXPECT_NE(groups(copy, {2}), block);
    EXPECT_EQ(lineOf(block), line);
    const std::string copied = lineOf(groups(copy, {2}));
    EXPECT_NEAR(*parseReal(copied.substr(0, copied.find(' '))),
                *parseReal(line.substr(0, line.find(' '))) + 100, 1e-9);
    const Index records = store().count();
    run(L"MOVE " + pick + L"\n\n0,0 100,50\n");
    EXPECT_EQ(lineOf(block), copied);
    EXPECT_EQ(store().count(), records);
}

}  // namespace
}  // namespace tests
