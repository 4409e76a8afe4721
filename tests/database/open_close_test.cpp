// The rules of opening and closing, and the faults of callers that break them.
#include "database/drawing_fixture.h"
#include "host/tags/tag_values.h"

namespace tests {
namespace {

/// The one fault that is expected.
std::string takeFault() {
    const std::vector<std::string> faults = takeFaults();
    return faults.size() == 1 ? faults.front() : std::to_string(faults.size()) + " faults";
}

class OpenRules : public DrawingTest {
  protected:
    /// Opens in each mode of `present` ("r", "w"), tries `wanted`, closes all.
    Acad::ErrorStatus tryOpen(const std::string& present, char wanted) {
        const AcDbObjectId id = idOf(add("0 LINE|8 0"));
        const auto open = [id](char mode, AcDbObject*& object) {
            return acdbOpenObject(object, id, mode == 'r' ? AcDb::kForRead : AcDb::kForWrite);
        };
        std::vector<AcDbObject*> opened;
        for (const char mode : present) {
            opened.push_back(nullptr);
            EXPECT_EQ(open(mode, opened.back()), Acad::eOk);
        }
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status = open(wanted, object);
        EXPECT_EQ(object != nullptr, status == Acad::eOk);
        if (object != nullptr) opened.push_back(object);
        for (AcDbObject* one : opened)
            one->close();
        return status;
    }
};

using Misuse = DrawingTest;
using Ids = DrawingTest;

TEST_F(OpenRules, EveryPairOfModes) {
    const struct {
        std::string present;
        Acad::ErrorStatus read, write;
    } rules[] = {
        {"", Acad::eOk, Acad::eOk},
        {"r", Acad::eOk, Acad::eWasOpenForRead},
        {"w", Acad::eWasOpenForWrite, Acad::eWasOpenForWrite},
        {std::string(255, 'r'), Acad::eOk, Acad::eWasOpenForRead},
        {std::string(256, 'r'), Acad::eAtMaxReaders, Acad::eWasOpenForRead},
    };
    for (const auto& rule : rules) {
        SCOPED_TRACE("open already: " + rule.present.substr(0, 3));
        EXPECT_EQ(tryOpen(rule.present, 'r'), rule.read);
        EXPECT_EQ(tryOpen(rule.present, 'w'), rule.write);
    }
}

TEST_F(OpenRules, NullErasedWrongClassLockedLayer) {
    host::ObjectBody& line = add("0 LINE|8 Walls");
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenObject(object, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
    AcDbDictionary* dictionary = nullptr;
    EXPECT_EQ(acdbOpenObject(dictionary, idOf(line), AcDb::kForWrite), Acad::eNotThatKindOfClass);
    EXPECT_EQ(dictionary, nullptr);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"WALLS");
    AcDbLayerTable* layers = nullptr;
    database.getSymbolTable(layers, AcDb::kForWrite);
    layers->add(layer);
    EXPECT_EQ(tryOpen("", 'w'), Acad::eOk);
    setTag(layer->body(), 70, "4");  // locked
    EXPECT_EQ(acdbOpenObject(object, idOf(line), AcDb::kForWrite), Acad::eOnLockedLayer);
    ASSERT_EQ(acdbOpenObject(object, idOf(line), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(object->upgradeOpen(), Acad::eOnLockedLayer);
    setTag(layer->body(), 70, "0");
    AcDbObject* second = nullptr;
    acdbOpenObject(second, idOf(line), AcDb::kForRead);
    EXPECT_EQ(object->upgradeOpen(), Acad::eHadMultipleReaders);
    EXPECT_EQ(object->erase(), Acad::eNotOpenForWrite);
    second->close();
    EXPECT_EQ(object->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eWasErased);
    for (AcDbObject* one :
         {object, static_cast<AcDbObject*>(layer), static_cast<AcDbObject*>(layers)})
        one->close();
    EXPECT_EQ(acdbOpenObject(object, idOf(line), AcDb::kForRead), Acad::eWasErased);
}

TEST_F(OpenRules, ANewObjectIsDeletedUntilItJoinsADatabaseAndClosedAfterwards) {
    const host::HeldCounts before = host::heldNow();
    auto* record = new AcDbXrecord;
    EXPECT_EQ(record->close(), Acad::eNotInDatabase);
    EXPECT_EQ(record->createExtensionDictionary(), Acad::eNotInDatabase);
    delete record;
    auto* text = new AcDbAttributeDefinition;
    Opened<AcDbBlockTableRecord> space(idOf(model()), AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, text), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(text), Acad::eAlreadyInDb);
    EXPECT_EQ(host::heldCount(host::Held::Object), before.counts[0] + 2);
    delete text;
    EXPECT_EQ(takeFault(), "delete: ATTDEF " + host::formatHandle(id.handle().value()) +
                               " is in a database; close it instead");
    EXPECT_EQ(host::heldCount(host::Held::Object), before.counts[0] + 1);
    EXPECT_FALSE(id.isErased());
}

TEST_F(Misuse, OfAClosedPointerIsNamedAndHarmless) {
    const host::ObjectBody& line = add("0 LINE|8 0");
    const std::string name = "LINE " + handle(line);
    AcDbEntity* entity = nullptr;
    acdbOpenObject(entity, idOf(line), AcDb::kForWrite);
    entity->close();
    EXPECT_EQ(entity->close(), Acad::eInvalidOpenState);
    EXPECT_EQ(takeFault(), "AcDbObject::close: " + name + " is not open");
    EXPECT_TRUE(entity->objectId().isNull());
    EXPECT_EQ(takeFault(), "use of " + name + " after it was closed");
    EXPECT_EQ(entity->erase(), Acad::eNotOpenForWrite);
    EXPECT_EQ(takeFault(), "use of " + name + " after it was closed");
    EXPECT_FALSE(line.erased);
    delete entity;
    EXPECT_EQ(takeFault(),
              "delete: " + name + " was closed; the pointer is no longer the caller's");
    // More closings than closed pointers are kept: each is given back once.
    for (int count = 0; count < 10'000; ++count) {
        ASSERT_EQ(acdbOpenObject(entity, idOf(line), AcDb::kForRead), Acad::eOk);
        entity->close();
    }
}

TEST_F(Misuse, ObjectsLeftOpenAreListed) {
    host::ObjectBody& line = add("0 LINE|8 0");
    const host::HeldCounts before = host::heldNow();
    AcDbObject* object = nullptr;
    acdbOpenObject(object, idOf(line), AcDb::kForRead);
    host::checkNothingLeaked(before, "X");
    EXPECT_TRUE(holds(takeFault(), "LINE " + handle(line) + " open for read"));
    object->close();
    auto* fresh = new AcDbXrecord;
    host::checkNothingLeaked(before, "X");
    EXPECT_TRUE(holds(takeFault(), "new XRECORD neither deleted nor added"));
    delete fresh;
}

TEST_F(Misuse, ADrawingThatGoesTakesItsOpeningsAndIdsAlong) {
    AcDbObjectId id;
    AcDbObject* object = nullptr;
    ads_name name;
    {
        AcDbDatabase other(host::newDrawing());
        id = other.store().idOf(*other.store().symbol("LAYER", L"0"));
        acdbGetAdsName(name, id);
        acdbOpenObject(object, id, AcDb::kForRead);
    }
    EXPECT_EQ(takeFault(), "closing the drawing: LAYER 10 open for read; close it before");
    object->close();
    EXPECT_EQ(takeFault(), "AcDbObject::close: object 10 is not open");
    EXPECT_FALSE(id.isValid());
    EXPECT_EQ(acdbOpenObject(object, id, AcDb::kForRead), Acad::eInvalidInput);
    EXPECT_EQ(takeFault(),
              "acdbOpenObject: the id is stale, its drawing was closed; fetch ids anew");
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(id.handle().isNull());
    EXPECT_EQ(acdbGetObjectId(id, name), Acad::eInvalidAdsName);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(takeFault(), "3 faults");
}

TEST_F(Ids, NamesHandlesAndComparison) {
    const host::ObjectBody& line = add("0 LINE|8 0");
    ads_name name;
    AcDbObjectId id = idOf(line);
    EXPECT_EQ(acdbGetAdsName(name, AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(acdbGetAdsName(name, id), Acad::eOk);
    EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
    EXPECT_EQ(id, idOf(line));
    const ads_name badNames[] = {{0, 0}, {5, 7}, {name[0], 1}, {name[0] + 1000, 0}, {-1, 0}};
    for (const ads_name& bad : badNames)
        EXPECT_EQ(acdbGetObjectId(id, bad), Acad::eInvalidAdsName);
    ACHAR buffer[17];
    AcDbHandle(L"fe12abCD").getIntoAsciiBuffer(buffer);
    EXPECT_EQ(std::wstring(buffer), L"FE12ABCD");
    AcDbHandle(~std::uint64_t{0}).getIntoAsciiBuffer(buffer);
    EXPECT_EQ(std::wstring(buffer), L"FFFFFFFFFFFFFFFF");
    for (const ACHAR* bad : {L"", L"xyz", L"2A ?", L"10000000000000000", L"\x20AC"})
        EXPECT_TRUE(AcDbHandle(bad).isNull()) << bad;
    EXPECT_EQ(database.getAcDbObjectId(id, false, AcDbHandle(L"FFFF")), Acad::eUnknownHandle);
    EXPECT_EQ(database.getAcDbObjectId(id, false, AcDbHandle()), Acad::eUnknownHandle);
    EXPECT_EQ(database.getAcDbObjectId(id, false, AcDbHandle(line.handle)), Acad::eOk);
    EXPECT_EQ(id, idOf(line));
}

}  // namespace
}  // namespace tests
