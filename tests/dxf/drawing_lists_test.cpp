// What names objects from outside of them follows their clones and forgets the erased.
#include "drawing_text.h"
#include "host/clone/deep_clone.h"
#include "host/clone/wblock_clone.h"

namespace tests {
namespace {

using DrawingLists = DrawingFiles;

// A text with a field and a light are listed by the drawing, a block reference, an image and a
// multileader by what they use.
const std::string kUses = "102 {BLKREFS|331 32|102 }\n";
const std::string kClass = "0 CLASS|1 MULTILEADER|2 AcDbMLeader|3 ACDB|90 1|91 1|280 0|281 1\n";
const std::string kEntities =
    "0 MULTILEADER|5 3A|330 17|100 AcDbEntity|8 0|100 AcDbMLeader|340 70|1001 ACAD|1005 77\n"
    "0 IMAGE|5 3B|330 17|100 AcDbEntity|8 0|100 AcDbRasterImage|340 71|360 72\n"
    "0 LIGHT|5 3C|330 17|100 AcDbEntity|8 0|100 AcDbLight|1 lamp\n"
    "0 SHAPE|5 3D|330 17|100 AcDbEntity|8 0|100 AcDbShape|2 DIODE\n";
const std::string kEntries =
    "|3 A|350 70|3 I|350 71|3 F|350 73|3 L|350 74|3 ACDB_RECOMPOSE_DATA|350 75\n";
const std::string kStyle =
    "0 TABLESTYLE|5 70|102 {ACAD_REACTORS|330 40|330 3A|102 }|330 40|100 AcDbTableStyle|7 Cell\n";
const std::string kImage = "0 IMAGEDEF|5 71|102 {ACAD_REACTORS|330 72|102 }|330 40\n";
const std::string kReactor = "0 IMAGEDEF_REACTOR|5 72|330 3B|100 X|330 3B\n";
const std::string kFields =
    "0 FIELDLIST|5 73|102 {ACAD_REACTORS|330 70|102 }|330 40|100 AcDbIdSet|90 1|330 51|100 "
    "AcDbFieldList\n";
const std::string kLights = "0 LIGHTLIST|5 74|330 40|100 AcDbLightList|90 1|90 1|5 3C|1 lamp\n";
const std::string kRecompose = "0 XRECORD|5 75|330 40|100 AcDbXrecord|90 1|330 32|330 38\n";

std::string withStyle(const std::string& text, const std::string& handle, const std::string& rest) {
    const std::string next = "0 ENDTAB\n0 TABLE|2 APPID";
    return with(text, next,
                "0 STYLE|5 " + handle +
                    "|330 3|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|" + rest + "\n" +
                    next);
}

std::string drawing() {
    std::string text = with(kDrawing, "2 Door|340 0\n", "2 Door|340 0\n" + kUses);
    text = with(text, "2 CLASSES\n", "2 CLASSES\n" + kClass);
    text = with(text, "0 TEXT|5 38", kEntities + "0 TEXT|5 38");
    text = withStyle(text, "76", "2 |70 1|3 es.shx");
    text = withStyle(withStyle(text, "77", "2 Own|70 0"), "78", "2 Cell|70 0");
    text = with(text, "|3 ACAD_LAYOUT|350 42\n", "|3 ACAD_LAYOUT|350 42" + kEntries);
    return tagsOf(
        with(text, "0 LAYOUT|5 61",
             kStyle + kImage + kReactor + kFields + kLights + kRecompose + "0 LAYOUT|5 61"));
}

std::vector<host::ObjectBody*> sourcesOf(host::Store& store) {
    std::vector<host::ObjectBody*> sources;
    for (const std::uint64_t handle : {0x30, 0x32, 0x38, 0x3A, 0x3B, 0x3C, 0x3D})
        sources.push_back(store.byHandle(handle));
    return sources;
}

TEST_F(DrawingLists, FollowClonesAndForgetTheErased) {
    const auto store = load(drawing());
    host::CloneMap map;
    host::copyWithOwned(*store, sourcesOf(*store), store->at(store->modelSpace()), map);
    host::translateReferences(*store, map);
    for (host::ObjectBody* source : sourcesOf(*store))
        store->setErased(*source, true);
    const std::string text = saved(*store);
    for (std::string list : {kUses, kStyle, kImage, kFields, kLights, kRecompose}) {
        for (const auto& [source, clone] : map.pairs()) {
            const std::string former = " " + host::formatHandle(source->handle);
            for (const char end : {'|', '\n'})
                if (const auto at = list.find(former + end); at != list.npos)
                    list.replace(at + 1, former.size() - 1,
                                 host::formatHandle(store->at(clone).handle));
        }
        EXPECT_TRUE(holds(text, tagsOf(list))) << list;
    }
    EXPECT_EQ(findings(text), "");
}

TEST_F(DrawingLists, ComeAlongIntoAnotherDrawingWithItsClasses) {
    const auto from = load(drawing());
    const std::string old = with(kDrawing, "AC1027", "AC1015");
    const auto to = load(tagsOf(withStyle(old, "76", "2 |70 1|3 other.shx")));
    const std::vector<host::ObjectBody*> sources = sourcesOf(*from);
    std::string lights, leaders = "|330 40";
    for (const std::string times : {"1", "2"}) {
        const auto made =
            host::wblockClone({sources.begin(), sources.end()}, *to, to->at(to->modelSpace()));
        lights += "|5 " + host::formatHandle(to->at(made[5]).handle) + "|1 lamp";
        leaders += "|330 " + host::formatHandle(to->at(made[3]).handle);
        const std::string text = saved(*to);
        for (const std::string& part :
             {"2 CLASSES\n" + with(kClass, "|91 1", "") + "0 ENDSEC", "100 AcDbIdSet|90 " + times,
              "100 AcDbLightList|90 1|90 " + times + lights,
              "102 {ACAD_REACTORS" + leaders + "|102 }", std::string("2 Own|70 0"),
              std::string("2 Cell|70 0")})
            EXPECT_TRUE(holds(text, tagsOf(part))) << part;
        EXPECT_TRUE(holds(text, "es.shx"));
        EXPECT_EQ(text.find("es.shx"), text.rfind("es.shx"));
        EXPECT_EQ(findings(text), "");
    }
}

}  // namespace
}  // namespace tests
