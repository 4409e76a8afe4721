// Builds small drawings tag by tag.
#include "editor/editor_fixture.h"

#include "host/control/effects.h"
#include "host/control/switches.h"
#include "host/editor/run/editor_services.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/sysvars.h"
#include "host/text/text_codec.h"

namespace tests {

using namespace host;

Answer Answers::next(const std::wstring&, InputUnit) {
    if (left.empty()) return {Answer::Kind::End, {}};
    const std::wstring text = left.front();
    left.pop_front();
    if (text.empty()) return {Answer::Kind::Enter, {}};
    if (text == L"^") return {Answer::Kind::Cancel, {}};
    return {Answer::Kind::Text, text};
}

EditorTest::EditorTest() {
    resetEditor();
    registerEditorServices();
    resetSysvars();
    resetMenus();
    switches() = Switches();
    clearEffects();
    state.database = &database;
    setCurrentDocumentState(&state);
    inputSource() = &answers;
}

EditorTest::~EditorTest() {
    resetEditor();
    setCurrentDocumentState(nullptr);
}

AcDbObjectId EditorTest::add(const std::string& tags, Index owner) {
    const bool onLayer = tags.find("|8 ") != tags.npos;
    const ObjectBody& body = append(store, onLayer ? tags : tags + "|8 0",
                                    owner == kNoIndex ? store.modelSpace() : owner);
    entities.push_back(store.idOf(body));
    return entities.back();
}

ObjectBody& EditorTest::addRecord(const std::string& table, const std::string& tags) {
    ObjectBody& record = make(store, tags, store.table(table), false);
    store.appendChild(record.owner, record);
    store.indexSymbol(record.owner, record, symbolName(record));
    return record;
}

Index EditorTest::addBlock(const std::string& name, const std::string& base) {
    const Index record = addRecord("BLOCK_RECORD", "0 BLOCK_RECORD|2 " + name).self;
    store.blockParts(record).begin =
        make(store, "0 BLOCK|2 " + name + "|" + base, record, false).self;
    return record;
}

std::string EditorTest::letters(const std::vector<AcDbObjectId>& ids) const {
    std::string text;
    for (const AcDbObjectId& id : ids) {
        std::size_t place = 0;
        while (place < entities.size() && entities[place] != id)
            ++place;
        text += place < entities.size() ? static_cast<char>('a' + place) : '?';
    }
    return text;
}

std::string EditorTest::members(const ads_name set) const {
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) != RTNORM) return "?";
    std::vector<AcDbObjectId> ids;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name;
        EXPECT_EQ(acedSSName(set, i, name), RTNORM);
        AcDbObjectId id;
        acdbGetObjectId(id, name);
        ids.push_back(id);
    }
    return letters(ids);
}

void EditorTest::erase(AcDbObjectId id) { store.setErased(*Store::resolve(id), true); }

void EditorTest::set(const wchar_t* variable, const wchar_t* value) {
    std::wstring explanation;
    EXPECT_TRUE(setSysvarText(variable, value, explanation)) << toUtf8(explanation);
}

std::string EditorTest::get(const wchar_t* mode, const resbuf* filter, const double* pt1,
                            const double* pt2) const {
    ads_name selection;
    const int result = acedSSGet(mode, pt1, pt2, filter, selection);
    if (result != RTNORM) return std::to_string(result);
    const std::string text = members(selection);
    acedSSFree(selection);
    return text;
}

std::vector<std::wstring> EditorTest::takeNotifications() {
    std::vector<std::wstring> texts = effectTexts(EffectKind::Notification);
    clearEffects();
    return texts;
}

}  // namespace tests
