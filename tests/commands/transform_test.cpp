// Moving and mirroring: what becomes of the tags, there and back, and what is refused.
#include <cmath>
#include <optional>
#include <sstream>

#include "commands/commands_fixture.h"
#include "common/library.h"
#include "common/tag_literals.h"
#include "host/clone/dimension_blocks.h"
#include "host/content/dictionary_text.h"

namespace tests {
namespace {

using namespace host;

/// Where two states of a drawing differ; numbers may in their last digits, angles by a turn.
std::string difference(const std::string& before, const std::string& now) {
    std::istringstream former(before), latter(now);
    for (std::string was, is; std::getline(former, was);) {
        std::getline(latter, is);
        const std::optional<double> x = parseReal(was), y = parseReal(is);
        const bool near =
            x && y && std::fabs(std::remainder(*x - *y, 360)) < 1e-9 * (1 + std::fabs(*x));
        if (was != is && !near) return was + " became " + is;
    }
    return "";
}

/// Groups behind the common ones: "code value|code value".
std::string written(const ObjectBody& body) {
    const std::string_view tags = body.tags();
    return render(tags.substr(tags.find("  8\n0\n") + 6));
}

struct Mapped {
    const char* type;
    /// A value that changes reads before/moved/mirrored; where its group is absent, "-".
    const char* tags;
};

// What stands in several places of an entity, or means something else there, follows in each when
// it is moved by 10,20,30 or mirrored at the Y axis.
constexpr Mapped kMapped[] = {
    {"ARC",
     "100 AcDbCircle|10 3.0/13.0/-3.0|20 4.0/24.0/4.0|30 1.0/31.0/1.0|40 2.0|100 AcDbArc|"
     "50 350.0/350.0/100.0|51 80.0/80.0/190.0"},
    {"LWPOLYLINE",
     "100 AcDbPolyline|90 2|70 0|38 -/30.0/-|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|42 0.5/0.5/-0.5|"
     "10 3.0/13.0/-3.0|20 2.0/22.0/2.0"},
    {"TEXT",
     "100 AcDbText|10 5.0/15.0/-5.0|20 1.0/21.0/1.0|30 0.0/30.0/0.0|40 1.0|1 x|"
     "50 30.0/30.0/150.0|71 -/-/4|100 AcDbText"},
    {"INSERT",
     "100 AcDbBlockReference|2 *Paper_Space|10 1.0/11.0/-1.0|20 1.0/21.0/1.0|30 0.0/30.0/0.0|"
     "50 10.0/10.0/170.0|45 3.0/3.0/-3.0|42 -/-/-1.0"},
    {"ELLIPSE",
     "100 AcDbEllipse|10 1.0/11.0/-1.0|20 0.0/20.0/0.0|30 0.0/30.0/0.0|11 2.0/2.0/-2.0|21 1.0|"
     "31 0.0|40 0.5|41 1.0/1.0/4.283185307179586|42 2.0/2.0/5.283185307179586"},
    // The tags 92 and 310 are a picture of it at the old place.
    {"CIRCLE",
     "92 2/-/-|310 ABCD/-/-|100 AcDbCircle|10 1.0/-9.0/-1.0|20 2.0/22.0/2.0|30 3.0/-27.0/3.0|"
     "40 1.0|210 0.0|220 0.0|230 -1.0|1001 ACAD|1011 1.0/11.0/-1.0|1021 2.0/22.0/2.0|"
     "1031 0.0/30.0/0.0"},
    {"MTEXT",
     "100 AcDbMText|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 0.0/30.0/0.0|11 1.0/1.0/-1.0|21 0.0|"
     "31 0.0|210 -/-/0.0|220 -/-/0.0|230 -/-/-1.0|101 Embedded Object|70 1|10 1.0/1.0/-1.0|"
     "20 0.0|30 0.0|11 1.0/11.0/-1.0|21 2.0/22.0/2.0|31 0.0/30.0/0.0|42 5.0"},
    {"ATTDEF",
     "100 AcDbText|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 -/30.0/-|1 x|50 -/-/180.0|71 -/-/4|"
     "100 AcDbAttributeDefinition|2 T|71 4|101 Embedded Object|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|"
     "30 0.0/30.0/0.0|210 0.0|220 0.0|230 1.0/1.0/-1.0|11 1.0/1.0/-1.0|21 0.0|31 0.0|50 0.0|"
     "101 Embedded Object|70 1|10 1.0/1.0/-1.0|20 0.0|30 0.0|11 1.0/11.0/-1.0|21 2.0/22.0/2.0|"
     "31 0.0/30.0/0.0"},
    // The text spells what elsewhere opens a line; the scale factors (16, and 10 at the end) stay.
    {"MULTILEADER",
     "100 AcDbMLeader|300 CONTEXT_DATA{|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 0.0/30.0/0.0|"
     "304 LEADER_LINE{|11 0.0|21 0.0|31 1.0/1.0/-1.0|12 3.0/13.0/-3.0|22 4.0/24.0/4.0|"
     "32 0.0/30.0/0.0|13 1.0/1.0/-1.0|23 0.0|33 0.0|42 0.0|14 0.0|24 0.0|34 1.0/1.0/-1.0|"
     "15 5.0/15.0/-5.0|25 6.0/26.0/6.0|35 0.0/30.0/0.0|16 2.0|26 2.0|36 2.0|46 0.5|"
     "47 2.0/2.0/-2.0|47 0.0|47 0.0|47 5.0/15.0/-5.0|47 0.0|47 2.0|47 0.0|47 6.0/26.0/6.0|"
     "47 0.0|47 0.0|47 2.0/2.0/-2.0|47 0.0/30.0/0.0|47 0.0|47 0.0|47 0.0|47 1.0|"
     "110 1.0/11.0/-1.0|120 2.0/22.0/2.0|130 0.0/30.0/0.0|111 1.0/1.0/-1.0|121 0.0|131 0.0|"
     "302 LEADER{|10 7.0/17.0/-7.0|20 8.0/28.0/8.0|30 0.0/30.0/0.0|11 1.0/1.0/-1.0|21 0.0|"
     "31 0.0|304 LEADER_LINE{|10 9.0/19.0/-9.0|20 9.5/29.5/9.5|30 0.0/30.0/0.0|11 9.0/19.0/-9.0|"
     "21 8.0/28.0/8.0|31 0.0/30.0/0.0|305 }|303 }|301 }|10 1.0|20 1.0|30 1.0"},
    {"ACAD_TABLE",
     "100 AcDbBlockReference|10 1.0/11.0/1.0|20 2.0/22.0/2.0|30 0.0/30.0/0.0|210 -/-/0.0|"
     "220 -/-/0.0|230 -/-/-1.0|100 AcDbTable|11 1.0/1.0/-1.0|21 0.0|11 7.0"},
    {"TOLERANCE",
     "100 AcDbFcf|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 0.0/30.0/0.0|11 -/-/-1.0|21 -/-/0.0|"
     "31 -/-/0.0|210 -/-/0.0|220 -/-/0.0|230 -/-/-1.0"},
    {"SHAPE",
     "100 AcDbShape|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 -/30.0/-|50 30.0/30.0/330.0|"
     "51 5.0/5.0/-5.0|41 -/-/-1.0"},
    {"HELIX",
     "100 AcDbSpline|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 -/30.0/-|12 1.0/1.0/-1.0|22 0.0|"
     "100 AcDbHelix|10 3.0/13.0/-3.0|20 4.0/24.0/4.0|30 -/30.0/-|12 0.6/0.6/-0.6|290 1/1/0"},
    {"MLINE",
     "100 AcDbMline|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 -/30.0/-|210 0.0|220 0.0|"
     "230 1.0/1.0/-1.0|11 1.0/11.0/-1.0|21 2.0/22.0/2.0|31 -/30.0/-|12 1.0/1.0/-1.0|"
     "13 0.6/0.6/-0.6|23 0.8"},
    {"SECTIONOBJECT",
     "100 AcDbSection|30 1.0|11 1.0/11.0/-3.0|21 2.0/22.0/4.0|31 -/30.0/-|11 3.0/13.0/-1.0|"
     "21 4.0/24.0/2.0|31 -/30.0/-|12 5.0/15.0/-5.0|22 6.0/26.0/6.0|32 -/30.0/-"},
    {"PDFUNDERLAY",
     "100 AcDbUnderlayReference|10 1.0/11.0/1.0|20 2.0/22.0/2.0|30 -/30.0/-|50 30.0|11 3.0|"
     "21 4.0|210 -/-/0.0|220 -/-/0.0|230 -/-/-1.0"},
    {"VIEWPORT",
     "100 AcDbViewport|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 -/30.0/-|12 3.0|22 4.0|17 5.0|27 6.0"},
    // One path of lines with a bulge, one with an arc, and the lines of a pattern.
    {"HATCH",
     "100 AcDbHatch|10 0.0|20 0.0|30 1.0/31.0/1.0|2 ANSI31|70 0|71 0|91 2|92 2|72 1|73 1|93 2|"
     "10 1.0/11.0/-1.0|20 2.0/22.0/2.0|42 0.5/0.5/-0.5|10 3.0/13.0/-3.0|20 2.0/22.0/2.0|42 0.0|"
     "97 0|92 1|93 2|72 2|10 1.0/11.0/-1.0|20 0.0/20.0/0.0|40 2.0|50 0.0/0.0/180.0|51 "
     "90.0/90.0/270.0|73 1/1/0|"
     "72 1|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|11 3.0/13.0/-3.0|21 0.0/20.0/0.0|97 0|75 0|76 1|"
     "52 0.0/0.0/180.0|41 1.0|77 0|78 1|53 45.0/45.0/135.0|43 1.0/11.0/-1.0|44 0.0/20.0/0.0|"
     "45 -2.0/-2.0/2.0|46 2.0|79 0|98 1|10 1.0/11.0/-1.0|20 1.0/21.0/1.0"},
    {"LIGHT",
     "100 AcDbLight|10 1.0/11.0/-1.0|20 2.0/22.0/2.0|30 -/30.0/-|11 3.0/13.0/-3.0|"
     "21 4.0/24.0/4.0|31 -/30.0/-"},
};

/// The tags before (1), moved (2) or mirrored (3).
std::string variant(const char* tags, int which) {
    std::string text;
    std::istringstream literal(tags);
    for (std::string tag, value; std::getline(literal, tag, '|');) {
        std::istringstream values(tag.substr(tag.find(' ') + 1));
        for (int i = 0; i < which && std::getline(values, value, '/'); ++i) {
        }  // one that stays as it is stands there once
        if (value == "-") continue;
        text += (text.empty() ? "" : "|") + tag.substr(0, tag.find(' ') + 1) + value;
    }
    return text;
}

class TransformTest : public CommandsTest {
  protected:
    std::string after(const wchar_t* script, const char* type, const std::string& tags) {
        session->newDrawing();
        const ObjectBody& body = add(type, tags);
        run(script);
        const std::string text = written(body);
        session->closeDrawing();
        return text;
    }

    /// Gives an entity data for an annotation scale.
    ObjectBody& addScale(ObjectBody& entity, const char* type, const char* point) {
        ObjectBody* holder = &addExtensionDictionary(entity, true);
        for (const wchar_t* key : {L"AcDbContextDataManager", L"ACDB_ANNOTATIONSCALES"}) {
            ObjectBody& next = addDictionary(*holder, true);
            addEntry(*holder, key, next.handle);
            holder = &next;
        }
        const std::string tags = "|100 AcDbObjectContextData|11 ";
        ObjectBody& data = appendObject(store(), "0 " + (type + tags) + point, holder->self);
        addEntry(*holder, L"*A1", data.handle);
        return data;
    }

    void mirrorTwice(const std::string& file) {
        const Outcome opened = session->openDrawing(file);
        if (opened.error.find("older than 2000") != std::string::npos) return;
        ASSERT_TRUE(opened) << opened.error;
        if (!entities().empty()) mirrorTwiceHere(file);
        session->closeDrawing();
    }

    void mirrorTwiceHere(const std::string& file) {
        const std::wstring mirror = L"MIRROR ALL\n\n1.5,2 7,-3.25 Y\n";
        ASSERT_EQ(run(mirror + mirror), CommandStatus::Done) << file << shown();
        const std::string before = stateOf(store());  // nothing is absent any more
        ASSERT_EQ(run(mirror), CommandStatus::Done) << file;
        EXPECT_NE(difference(before, stateOf(store())), "") << file;
        ASSERT_EQ(run(mirror), CommandStatus::Done) << file;
        EXPECT_EQ(difference(before, stateOf(store())), "") << file;
        clearEffects();
    }
};

TEST_F(TransformTest, MirroredTwiceEveryEntityIsAsBefore) {
    mirrorTwice(TESTS_FOLDER "/commands/every_type.dxf");
    mirrorTwice(SAMPLES_FOLDER "/plan.dxf");
    const std::vector<std::string> drawings = libraryDrawings();
    for (std::size_t i = 0; i < drawings.size(); i += 8)
        mirrorTwice(drawings[i]);

    session->newDrawing();
    for (const Mapped& each : kMapped)
        if (std::string_view(each.type) != "VIEWPORT") add(each.type, variant(each.tags, 1));
    mirrorTwiceHere("what stands in several places");
}

TEST_F(TransformTest, WhatStandsInSeveralPlacesFollowsInEach) {
    for (const Mapped& each : kMapped) {
        const std::string before = variant(each.tags, 1);
        EXPECT_EQ(after(L"MOVE ALL\n\n10,20,30\n\n", each.type, before), variant(each.tags, 2));
        EXPECT_EQ(after(L"MIRROR ALL\n\n0,0 0,1 Y\n", each.type, before), variant(each.tags, 3));
    }
}

/// What cannot be done to one entity is done to none, and the reason is told.
TEST_F(TransformTest, RefusalsChangeNothing) {
    session->newDrawing();
    run(L"LINE 0,0 1,1\n\nCOPYCLIP L\n\n");
    const AcDbObjectId solid = store().idOf(add("3DSOLID", "100 AcDbModelerGeometry"));
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
        EXPECT_TRUE(holds(shown(), "3DSOLID " + toUtf8(handleOf(solid)) + " cannot be " + verb +
                                       " here; leave it out of the selection."));
        EXPECT_EQ(stateOf(store()), before);
    }
    run(L"ERASE " + handent(solid) + L"\n\n");
    EXPECT_EQ(run(L"MIRROR ALL\n\n1,1 2,2 Y\n"), CommandStatus::Failed);
    EXPECT_TRUE(holds(shown(), "VIEWPORT"));
    EXPECT_EQ(run(L"MOVE ALL\n\n1,1 2,2\n"), CommandStatus::Failed);
    EXPECT_TRUE(holds(shown(), "group 10 is or becomes no finite number"));
    run(L"ERASE L\n\nPASTECLIP 5,5\nCOPYCLIP ALL\n\n");
    EXPECT_EQ(entities(), "LINE VIEWPORT LINE");
    EXPECT_EQ(run(L"PASTECLIP 9,9\n"), CommandStatus::Failed);
    EXPECT_TRUE(holds(shown(), "VIEWPORT cannot be pasted into model space"));
    EXPECT_EQ(entities(), "LINE VIEWPORT LINE");
}

TEST_F(TransformTest, DataOfAnUnknownShapeAreRefused) {
    const std::pair<const char*, const char*> cases[] = {
        {"LINE", "100 AcDbLine|10 1.0|20 1.0|101 Embedded Object|70 1|10 1.0|11 1.0"},
        {"MTEXT", "100 AcDbMText|10 1.0|101 Embedded Object|71 1|10 1.0|11 1.0"},
        {"MTEXT", "100 AcDbMText|10 1.0|101 Embedded Object|70 1|10 1.0"},
        {"ATTDEF", "100 AcDbText|10 1.0|101 Embedded Object|10 1.0|11 1.0"},
        {"MULTILEADER", "100 AcDbMLeader|10 1.0"},
        {"MULTILEADER", "100 AcDbMLeader|300 CONTEXT_DATA{|10 1.0"},
        {"MULTILEADER", "100 AcDbMLeader|300 CONTEXT_DATA{|47 1.0|301 }"},
    };
    for (const auto& [type, text] : cases) {
        EXPECT_EQ(after(L"MOVE ALL\n\n1,1 2,2\n", type, text), text);
        EXPECT_TRUE(holds(shown(), "it holds data that are not known here")) << text;
    }
}

TEST_F(TransformTest, WhatIsKeptForAnAnnotationScaleFollows) {
    session->newDrawing();
    ObjectBody& text = add("MTEXT", "100 AcDbMText|10 1.0|20 2.0|30 0.0|11 1.0|21 0.0|31 0.0");
    const ObjectBody& data = addScale(text, "ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", "1.0");
    run(L"COPY ALL\n\n0,0 10,20\n\n");
    const ObjectBody& copied = store().at(store().count());
    EXPECT_EQ(values(data, {11, 21}), "1.0 -");
    EXPECT_EQ(values(copied, {0, 11, 21}), "ACDB_MTEXTOBJECTCONTEXTDATA_CLASS 11.0 20.0");
    addScale(add("LINE", "100 AcDbLine|10 0.0|11 1.0"), "ACDB_OBJECTCONTEXTDATA_CLASS", "1.0");
    EXPECT_EQ(run(L"MOVE ALL\n\n1,1 2,2\n"), CommandStatus::Failed);
    EXPECT_TRUE(holds(shown(), "what it keeps for a scale is not known here"));
    EXPECT_EQ(values(data, {11, 21}), "1.0 -");
}

/// Each table shows its own block, also when it is a copy.
TEST_F(TransformTest, ATablesBlockGoesAlong) {
    session->newDrawing();
    ObjectBody& block = makeAnonymousBlock(store(), L'T', store().at(store().modelSpace()));
    const ObjectBody& table =
        add("ACAD_TABLE", "100 AcDbBlockReference|2 " + store().encode(symbolName(block)) +
                              "|10 1.0|20 2.0|30 0.0|100 AcDbTable|343 " +
                              formatHandle(block.handle) + "|11 1.0|21 0.0|31 0.0");
    const std::string users = "102\n{BLKREFS\n331\n" + formatHandle(table.handle) + "\n102\n}\n";
    block.setTags(std::string(block.tags()) + users);
    const std::string before = values(table, {2, 343});
    const auto showsItsOwn = [&](int occurrence) {
        const ObjectBody& each = entity("ACAD_TABLE", occurrence);
        const auto* record = store().symbol("BLOCK_RECORD", store().decode(values(each, {2})));
        return record != nullptr && values(each, {343}) == formatHandle(record->handle);
    };
    run(L"COPY L\n\n0,0 5,5\n\nCOPYCLIP L\n\n");
    EXPECT_EQ(values(table, {2, 343}), before);
    EXPECT_EQ(std::string(block.tags().substr(block.tags().size() - users.size())), users);
    EXPECT_NE(values(entity("ACAD_TABLE", 1), {2}), values(table, {2}));
    EXPECT_TRUE(showsItsOwn(1));
    session->newDrawing();
    run(L"PASTECLIP 9,9\n");
    EXPECT_TRUE(showsItsOwn(0));
}

/// Each dimension shows its own block, also when it is a copy.
TEST_F(TransformTest, ADimensionsPictureGoesAlong) {
    session->openDrawing(TESTS_FOLDER "/commands/every_type.dxf");
    const ObjectBody& first = entity("DIMENSION");
    const std::wstring pick = handent(store().idOf(first));
    const std::string block = values(first, {2});
    const auto lineOf = [&](const std::string& name) {
        const ObjectBody* record = store().symbol("BLOCK_RECORD", store().decode(name));
        return values(store().at(store().firstLive(record->self)), {10, 20});
    };
    const std::string line = lineOf(block);
    run(L"COPY " + pick + L"\n\n0,0 100,50\n\n");
    const ObjectBody& copy = store().at(store().lastLive(store().modelSpace()));
    EXPECT_NE(values(copy, {2}), block);
    EXPECT_EQ(lineOf(block), line);
    const std::string copied = lineOf(values(copy, {2}));
    EXPECT_NEAR(*parseReal(copied.substr(0, copied.find(' '))),
                *parseReal(line.substr(0, line.find(' '))) + 100, 1e-9);
    const Index records = store().count();
    run(L"MOVE " + pick + L"\n\n0,0 100,50\n");
    EXPECT_EQ(lineOf(block), copied);
    EXPECT_EQ(store().count(), records);
}

}  // namespace
}  // namespace tests
