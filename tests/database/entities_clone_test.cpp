// Deep cloning: what is owned comes along, references follow it, wrong calls change nothing.
#include <algorithm>

#include "entities_drawing.h"
#include "host/clone/clone_map.h"
#include "host/store/body_text.h"

using namespace entities;
using host::ObjectBody;

namespace {

const std::string kLine = "0 LINE|100 AcDbEntity|8 0|100 AcDbLine|10 1|20 2|30 3";

struct Cloning {
    Acad::ErrorStatus status;
    AcDbIdMapping map;
    Cloning(Drawing& drawing, const std::vector<AcDbObjectId>& ids, AcDbObjectId owner) {
        AcDbObjectIdArray list;
        for (const AcDbObjectId& id : ids)
            list.append(id);
        status = drawing.database().deepCloneObjects(list, owner, map);
    }
    ObjectBody& of(Drawing& drawing, const ObjectBody& source) {
        return drawing.store().at(map.map().cloneOf(source));
    }
};

}  // namespace

using DeepClone = entities::DrawingTest;

TEST_F(DeepClone, TurnsTheHandlesThatEntitiesAreSortedBy) {
    ObjectBody& line = drawing.add(kLine);
    const std::string self = drawing.handle(line);
    ObjectBody& table = drawing.addObject(
        "0 SORTENTSTABLE|100 AcDbSortentsTable|331 " + self + "|5 " + self + "|331 FFFF|5 " + self,
        line);
    drawing.replaceText(line, "|330 ", "|102 {X|360 " + drawing.handle(table) + "|102 }|330 ");
    Cloning cloning(drawing, {drawing.id(line)}, drawing.id(drawing.model()));
    const std::string clone = drawing.handle(cloning.of(drawing, line));
    EXPECT_NE(render(cloning.of(drawing, table).tags())
                  .find("331 " + clone + "|5 " + clone + "|331 FFFF|5 " + clone),
              std::string::npos)
        << render(cloning.of(drawing, table).tags());
}

TEST_F(DeepClone, AppendsInListOrderWithSubEntitiesInTheTargetSpace) {
    ObjectBody& poly = drawing.addPolyline();
    ObjectBody& line = drawing.add(kLine);
    const std::vector<AcDbObjectId> ids = {drawing.id(line), drawing.id(poly), drawing.id(line)};
    Cloning toPaper(drawing, ids, drawing.id(drawing.paper()));
    ASSERT_EQ(toPaper.status, Acad::eOk);
    const ObjectBody& first = drawing.store().at(drawing.store().firstLive(drawing.paper().self));
    EXPECT_EQ(first.type() == "LINE" ? drawing.walk(drawing.id(first)) : "no line first",
              "POLYLINE VERTEX VERTEX SEQEND");
    ObjectBody& clone = toPaper.of(drawing, poly);
    const ObjectBody& end = drawing.store().at(clone.sequenceEnd);
    EXPECT_EQ(clone.handle, first.handle + 1);
    EXPECT_EQ(end.owner, clone.self);
    for (const ObjectBody* body : {&first, const_cast<const ObjectBody*>(&clone), &end}) {
        EXPECT_EQ(host::getField(*body, host::field::paperSpace), 1) << render(body->tags());
    }
    Cloning back(drawing, {drawing.id(clone)}, drawing.id(drawing.model()));
    EXPECT_EQ(host::getField(back.of(drawing, clone), host::field::paperSpace), 0);
    EXPECT_EQ(drawing.walk(drawing.id(line)), "POLYLINE VERTEX VERTEX SEQEND");
}

TEST_F(DeepClone, HasOneOwnerAndStaysTheLayoutsLastViewport) {
    ObjectBody& viewport =
        drawing.add("0 VIEWPORT|100 AcDbEntity|8 0|100 AcDbViewport|69 2", drawing.paper());
    drawing.replaceText(viewport, "|330 ", "|330 99|330 ");
    ObjectBody& layout = drawing.addObject(
        "0 LAYOUT|100 AcDbLayout|331 " + drawing.handle(viewport), drawing.paper());
    const host::FieldPlace ofBlock{"AcDbBlockTableRecord", 340}, last{"AcDbLayout", 331};
    std::string record(drawing.paper().tags());
    host::setTag(record, ofBlock, drawing.handle(layout));
    drawing.paper().setTags(record);
    Cloning elsewhere(drawing, {drawing.id(viewport)}, drawing.id(drawing.model()));
    EXPECT_EQ(host::textTag(layout.tags(), last), drawing.handle(viewport));
    Cloning moved(drawing, {drawing.id(viewport)}, drawing.id(drawing.paper()));
    const ObjectBody& clone = moved.of(drawing, viewport);
    EXPECT_EQ(host::textTag(layout.tags(), last), drawing.handle(clone));
    const std::string text = render(clone.tags());
    EXPECT_NE(text.find("|330 " + drawing.handle(drawing.paper()) + "|"), std::string::npos);
    EXPECT_EQ(text.find("|330 "), text.rfind("|330 "));
}

TEST_F(DeepClone, LeavesErasedDictionariesAndEntriesBehind) {
    ObjectBody& line = drawing.add(kLine);
    ObjectBody& dictionary = drawing.addObject("0 DICTIONARY|100 AcDbDictionary|280 1", line);
    ObjectBody& record = drawing.addObject("0 XRECORD|100 AcDbXrecord", dictionary);
    drawing.replaceText(dictionary, "280 1", "280 1|350 FFFF|3 KEY|360 " + drawing.handle(record));
    drawing.replaceText(line, "|330 ",
                        "|102 {ACAD_XDICTIONARY|360 " + drawing.handle(dictionary) + "|102 }|330 ");
    drawing.store().setErased(record, true);
    Cloning empty(drawing, {drawing.id(line)}, drawing.id(drawing.model()));
    const std::string copy = render(empty.of(drawing, dictionary).tags());
    EXPECT_EQ(copy.substr(copy.find("100 ")), "100 AcDbDictionary|280 1");
    drawing.store().setErased(dictionary, true);
    Cloning bare(drawing, {drawing.id(line)}, drawing.id(drawing.model()));
    EXPECT_EQ(host::extensionDictionaryHandle(bare.of(drawing, line).tags()), 0u);
}

TEST_F(DeepClone, RefusesWrongCallsWithoutCloning) {
    AcDbDatabase foreign(host::newDrawing());
    ObjectBody& line = drawing.add(kLine);
    ObjectBody& erased = drawing.add(kLine);
    ObjectBody& onPaper = drawing.add(kLine, drawing.paper());
    drawing.store().setErased(erased, true);
    const AcDbObjectId model = drawing.id(drawing.model());
    const AcDbObjectId id = drawing.id(line);
    const AcDbObjectId elsewhere = foreign.store().idOf(foreign.store().modelSpace());
    const auto status = [&](std::vector<AcDbObjectId> ids, AcDbObjectId owner) {
        const host::Index before = drawing.store().count();
        const Acad::ErrorStatus answer = Cloning(drawing, ids, owner).status;
        EXPECT_EQ(drawing.store().count(), before);
        return answer;
    };
    EXPECT_EQ(status({}, model), Acad::eOk);
    EXPECT_EQ(status({drawing.id(erased)}, model), Acad::eOk);
    EXPECT_EQ(status({id, drawing.id(onPaper)}, model), Acad::eInvalidInput);
    EXPECT_EQ(status({id, elsewhere}, model), Acad::eWrongDatabase);
    EXPECT_EQ(status({id}, elsewhere), Acad::eWrongDatabase);
    EXPECT_EQ(status({id, AcDbObjectId()}, model), Acad::eNullObjectId);
    {
        Opened<AcDbEntity> open(id, AcDb::kForWrite);
        EXPECT_EQ(status({id}, model), Acad::eWasOpenForWrite);
    }
    Opened<AcDbBlockTableRecord> open(model, AcDb::kForRead);
    EXPECT_EQ(status({id}, model), Acad::eWasOpenForRead);
}
