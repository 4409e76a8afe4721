// Deep cloning: what is owned comes along, references follow it, wrong calls change nothing.
#include "database/drawing_fixture.h"
#include "host/clone/clone_map.h"
#include "host/store/body_text.h"

namespace tests {
namespace {

using host::ObjectBody;

const std::string kLine = "0 LINE|100 AcDbEntity|8 0|100 AcDbLine|10 1|20 2|30 3";

struct Cloning {
    host::Store& store;
    Acad::ErrorStatus status;
    AcDbIdMapping map;
    Cloning(AcDbDatabase& database, const std::vector<AcDbObjectId>& ids, AcDbObjectId owner)
        : store(database.store()) {
        AcDbObjectIdArray list;
        for (const AcDbObjectId& id : ids)
            list.append(id);
        status = database.deepCloneObjects(list, owner, map);
    }
    ObjectBody& of(const ObjectBody& source) { return store.at(map.map().cloneOf(source)); }
};

using DeepClone = DrawingTest;

TEST_F(DeepClone, TurnsTheHandlesThatEntitiesAreSortedBy) {
    ObjectBody& line = add(kLine);
    const std::string self = handle(line);
    ObjectBody& table = addObject(
        "0 SORTENTSTABLE|100 AcDbSortentsTable|331 " + self + "|5 " + self + "|331 FFFF|5 " + self,
        line);
    replaceText(line, "|330 ", "|102 {X|360 " + handle(table) + "|102 }|330 ");
    Cloning cloning(database, {idOf(line)}, idOf(model()));
    const std::string clone = handle(cloning.of(line));
    EXPECT_TRUE(holds(render(cloning.of(table).tags()),
                      "331 " + clone + "|5 " + clone + "|331 FFFF|5 " + clone));
}

TEST_F(DeepClone, AppendsInListOrderWithSubEntitiesInTheTargetSpace) {
    ObjectBody& poly = addPolyline();
    ObjectBody& line = add(kLine);
    const std::vector<AcDbObjectId> ids = {idOf(line), idOf(poly), idOf(line)};
    Cloning toPaper(database, ids, idOf(paper()));
    ASSERT_EQ(toPaper.status, Acad::eOk);
    const ObjectBody& first = store.at(store.firstLive(paper().self));
    EXPECT_EQ(first.type() == "LINE" ? walk(idOf(first)) : "no line first",
              "POLYLINE VERTEX VERTEX SEQEND");
    ObjectBody& clone = toPaper.of(poly);
    const ObjectBody& end = store.at(clone.sequenceEnd);
    EXPECT_EQ(clone.handle, first.handle + 1);
    EXPECT_EQ(end.owner, clone.self);
    for (const ObjectBody* body : {&first, const_cast<const ObjectBody*>(&clone), &end}) {
        EXPECT_EQ(host::getField(*body, host::field::paperSpace), 1) << render(body->tags());
    }
    Cloning back(database, {idOf(clone)}, idOf(model()));
    EXPECT_EQ(host::getField(back.of(clone), host::field::paperSpace), 0);
    EXPECT_EQ(walk(idOf(line)), "POLYLINE VERTEX VERTEX SEQEND");
}

TEST_F(DeepClone, HasOneOwnerAndStaysTheLayoutsLastViewport) {
    ObjectBody& viewport = add("0 VIEWPORT|100 AcDbEntity|8 0|100 AcDbViewport|69 2", paper());
    replaceText(viewport, "|330 ", "|330 99|330 ");
    ObjectBody& layout = addObject("0 LAYOUT|100 AcDbLayout|331 " + handle(viewport), paper());
    const host::FieldPlace last{"AcDbLayout", 331};
    setTag(paper(), {"AcDbBlockTableRecord", 340}, handle(layout));
    Cloning elsewhere(database, {idOf(viewport)}, idOf(model()));
    EXPECT_EQ(host::textTag(layout.tags(), last), handle(viewport));
    Cloning moved(database, {idOf(viewport)}, idOf(paper()));
    const ObjectBody& clone = moved.of(viewport);
    EXPECT_EQ(host::textTag(layout.tags(), last), handle(clone));
    const std::string text = render(clone.tags());
    EXPECT_TRUE(holds(text, "|330 " + handle(paper()) + "|"));
    EXPECT_EQ(text.find("|330 "), text.rfind("|330 "));
}

TEST_F(DeepClone, LeavesErasedDictionariesAndEntriesBehind) {
    ObjectBody& line = add(kLine);
    ObjectBody& dictionary = addObject("0 DICTIONARY|100 AcDbDictionary|280 1", line);
    ObjectBody& record = addObject("0 XRECORD|100 AcDbXrecord", dictionary);
    replaceText(dictionary, "280 1", "280 1|350 FFFF|3 KEY|360 " + handle(record));
    replaceText(line, "|330 ", "|102 {ACAD_XDICTIONARY|360 " + handle(dictionary) + "|102 }|330 ");
    store.setErased(record, true);
    Cloning empty(database, {idOf(line)}, idOf(model()));
    const std::string copy = render(empty.of(dictionary).tags());
    EXPECT_EQ(copy.substr(copy.find("100 ")), "100 AcDbDictionary|280 1");
    store.setErased(dictionary, true);
    Cloning bare(database, {idOf(line)}, idOf(model()));
    EXPECT_EQ(host::extensionDictionaryHandle(bare.of(line).tags()), 0u);
}

TEST_F(DeepClone, RefusesWrongCallsWithoutCloning) {
    AcDbDatabase foreign(host::newDrawing());
    ObjectBody& line = add(kLine);
    ObjectBody& erased = add(kLine);
    ObjectBody& onPaper = add(kLine, paper());
    store.setErased(erased, true);
    const AcDbObjectId space = idOf(model());
    const AcDbObjectId id = idOf(line);
    const AcDbObjectId elsewhere = foreign.store().idOf(foreign.store().modelSpace());
    const auto status = [&](std::vector<AcDbObjectId> ids, AcDbObjectId owner) {
        const host::Index before = store.count();
        const Acad::ErrorStatus answer = Cloning(database, ids, owner).status;
        EXPECT_EQ(store.count(), before);
        return answer;
    };
    EXPECT_EQ(status({}, space), Acad::eOk);
    EXPECT_EQ(status({idOf(erased)}, space), Acad::eOk);
    EXPECT_EQ(status({id, idOf(onPaper)}, space), Acad::eInvalidInput);
    EXPECT_EQ(status({id, elsewhere}, space), Acad::eWrongDatabase);
    EXPECT_EQ(status({id}, elsewhere), Acad::eWrongDatabase);
    EXPECT_EQ(status({id, AcDbObjectId()}, space), Acad::eNullObjectId);
    {
        Opened<AcDbEntity> open(id, AcDb::kForWrite);
        EXPECT_EQ(status({id}, space), Acad::eWasOpenForWrite);
    }
    Opened<AcDbBlockTableRecord> open(space, AcDb::kForRead);
    EXPECT_EQ(status({id}, space), Acad::eWasOpenForRead);
}

}  // namespace
}  // namespace tests
