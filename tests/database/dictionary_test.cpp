// Dictionaries, extension dictionaries and xrecords.
#include "database/drawing_fixture.h"
#include "host/content/dictionary_text.h"

namespace tests {
namespace {

/// Adds a new xrecord under a key; the status of setAt.
Acad::ErrorStatus put(AcDbDictionary& dictionary, const ACHAR* key, AcDbObjectId& id) {
    auto* record = new AcDbXrecord;
    const Acad::ErrorStatus status = dictionary.setAt(key, record, id);
    if (status == Acad::eOk)
        record->close();
    else
        delete record;
    return status;
}

AcDbObjectId extensionOf(AcDbObjectId id) {
    Opened<AcDbObject> object(id, AcDb::kForWrite);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eOk);
    return object->extensionDictionary();
}

using Dictionary = DrawingTest;
using ExtensionDictionary = DrawingTest;
using Xrecord = DrawingTest;

TEST_F(Dictionary, EntriesComeAndGo) {
    Opened<AcDbDictionary> root(store.idOf(store.rootDictionary()), AcDb::kForWrite);
    const std::string before(root->body().tags());
    AcDbObjectId first, second, found;
    EXPECT_EQ(put(*root, L"Door List", first), Acad::eOk);
    EXPECT_EQ(root->getAt(L"DOOR LIST", found), Acad::eOk);
    EXPECT_EQ(found, first);
    EXPECT_EQ(put(*root, L"door list", second), Acad::eOk);
    EXPECT_TRUE(first.isErased());
    for (const ACHAR* bad : {L"", L"a|b", L"*x", L"a=b", L"`"})
        EXPECT_EQ(put(*root, bad, found), Acad::eInvalidKey) << bad;
    AcDbAttribute text;
    EXPECT_EQ(root->setAt(L"text", &text, found), Acad::eWrongObjectType);
    AcDbObject* entry = nullptr;
    EXPECT_EQ(root->getAt(L"door list", entry, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(root->remove(L"door list"), Acad::eWasOpenForRead);
    EXPECT_EQ(put(*root, L"door list", found), Acad::eWasOpenForRead);
    EXPECT_FALSE(second.isErased());
    entry->close();
    EXPECT_EQ(root->remove(L"door list"), Acad::eOk);
    EXPECT_EQ(root->remove(L"door list"), Acad::eKeyNotFound);
    EXPECT_TRUE(second.isErased());
    EXPECT_EQ(root->body().tags(), before);
}

TEST_F(Dictionary, AnErasedEntryLeavesAndAnErasedDictionaryTakesItsEntriesAlong) {
    const AcDbObjectId id = extensionOf(idOf(add("0 LINE|8 0")));
    AcDbObjectId first, second, found;
    Opened<AcDbDictionary> dictionary(id, AcDb::kForWrite);
    put(*dictionary, L"first", first);
    put(*dictionary, L"second", second);
    Opened<AcDbObject>(first, AcDb::kForWrite)->erase();
    EXPECT_EQ(dictionary->getAt(L"first", found), Acad::eKeyNotFound);
    EXPECT_EQ(dictionary->erase(), Acad::eOk);
    EXPECT_TRUE(second.isErased());
}

TEST_F(Dictionary, EntriesStandInFrontOfADefaultEntryAndOfExtendedData) {
    host::ObjectBody& body = addObject(
        "0 ACDBDICTIONARYWDFLT|100 AcDbDictionary|280 1|281 1|3 Old|360 F|"
        "100 AcDbDictionaryWithDefault|340 F|1001 ACAD|1000 tail",
        model());
    Opened<AcDbDictionary> dictionary(idOf(body), AcDb::kForWrite);
    AcDbObjectId id;
    put(*dictionary, L"New", id);
    const std::string handle = host::formatHandle(id.handle().value());
    EXPECT_TRUE(
        holds(render(body.tags()), "3 Old|360 F|3 New|360 " + handle +
                                       "|100 AcDbDictionaryWithDefault|340 F|1001 ACAD|1000 tail"));
}

TEST_F(ExtensionDictionary, CreateAndRelease) {
    host::ObjectBody& line = add("0 LINE|100 AcDbEntity|8 0");
    const std::string before = render(line.tags());
    Opened<AcDbObject> object(idOf(line), AcDb::kForWrite);
    EXPECT_TRUE(object->extensionDictionary().isNull());
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eKeyNotFound);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eAlreadyInDb);
    const AcDbObjectId id = object->extensionDictionary();
    {
        Opened<AcDbDictionary> dictionary(id, AcDb::kForWrite);
        EXPECT_EQ(dictionary->ownerId(), idOf(line));
        EXPECT_TRUE(host::ownsHard(dictionary->body().tags()));
        AcDbObjectId entry;
        put(*dictionary, L"KEY", entry);
        EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eWasOpenForWrite);
    }
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eContainerNotEmpty);
    EXPECT_EQ(object->extensionDictionary(), id);
    Opened<AcDbDictionary>(id, AcDb::kForWrite)->remove(L"KEY");
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eOk);
    EXPECT_TRUE(id.isErased());
    EXPECT_EQ(render(line.tags()), before);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eOk);
    EXPECT_NE(object->extensionDictionary(), id);
}

TEST_F(ExtensionDictionary, ErasedByItselfKeepsTheOwnersLink) {
    host::ObjectBody& line = add("0 LINE|8 0");
    const AcDbObjectId id = extensionOf(idOf(line));
    Opened<AcDbObject> object(idOf(line), AcDb::kForWrite);
    Opened<AcDbObject>(id, AcDb::kForWrite)->erase();
    EXPECT_TRUE(line.releasedLater);
    EXPECT_EQ(object->extensionDictionary(), id);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eAlreadyInDb);
}

TEST_F(Xrecord, GivesBackEveryKindOfValue) {
    const std::string empty = "0 XRECORD|100 AcDbXrecord|280 1";
    Opened<AcDbXrecord> first(idOf(addObject(empty, model())), AcDb::kForWrite);
    Opened<AcDbXrecord> second(idOf(addObject(empty, model())), AcDb::kForWrite);
    const host::ObjectBody& zero = *store.symbol("LAYER", L"0");
    ads_name layer;
    acdbGetAdsName(layer, idOf(zero));
    const ads_point point = {1.5, -2, 3e20};
    resbuf* chain = acutBuildList(280, 7, 1, L"\u00D8 wall\\P", 10, point, 40, 0.1, 70, -3, 90,
                                  1 << 30, 160, Adesk::Int64{1} << 40, 290, 1, 102, L"{X", 330,
                                  layer, 102, L"}", 210, point, 300, L"", 0);
    resbuf* last = chain;
    while (last->rbnext != nullptr)
        last = last->rbnext;
    char bytes[] = {'a', 'b', '\x7F'};
    resbuf binary = {nullptr, 310, {}};
    binary.resval.rbinary = {3, bytes};
    last->rbnext = &binary;
    EXPECT_EQ(first->setFromRbChain(*chain), Acad::eOk);
    last->rbnext = nullptr;
    acutRelRb(chain);
    // Read and written once more, it is the same.
    EXPECT_EQ(first->rbChain(&chain), Acad::eOk);
    EXPECT_EQ(second->setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
    for (const AcDbXrecord* record : {&*first, &*second}) {
        const std::string tags = render(record->body().tags());
        EXPECT_EQ(tags.substr(tags.find("280 1|") + 6),
                  "280 7|1 \u00D8 wall\\P|10 1.5|20 -2.0|30 3e+20|40 0.1|70 -3|90 1073741824|"
                  "160 1099511627776|290 1|102 {X|330 " +
                      handle(zero) + "|102 }|210 1.5|220 -2.0|230 3e+20|300 |310 61627F");
    }
}

TEST_F(Xrecord, RefusesABadChainAsAWholeAndReplacesTheFormerContent) {
    host::ObjectBody& body =
        addObject("0 XRECORD|100 AcDbXrecord|280 1|1 old|280 5|1001 ACAD|1070 9", model());
    Opened<AcDbXrecord> record(idOf(body), AcDb::kForWrite);
    const std::string before = render(body.tags());
    resbuf second = {nullptr, 0, {}};
    resbuf first = {&second, 90, {}};
    for (const short bad : {0, -1, 5, 105, 370, 1001, 5000}) {
        second.restype = bad;
        EXPECT_EQ(record->setFromRbChain(first), Acad::eInvalidDxfCode) << bad;
    }
    EXPECT_EQ(render(body.tags()), before);
    first.rbnext = nullptr;
    EXPECT_EQ(record->setFromRbChain(first), Acad::eOk);
    EXPECT_TRUE(holds(render(body.tags()), "280 1|90 0|1001 ACAD|1070 9"));
    Opened<AcDbXrecord> reader(idOf(addObject("0 XRECORD|100 AcDbXrecord|280 1", model())),
                               AcDb::kForRead);
    EXPECT_EQ(reader->setFromRbChain(first), Acad::eNotOpenForWrite);
    resbuf* chain = &first;
    EXPECT_EQ(reader->rbChain(&chain), Acad::eOk);
    EXPECT_EQ(chain, nullptr);
}

}  // namespace
}  // namespace tests
