// Builds small drawings group by group.
#include "editor/editor_fixture.h"

#include <algorithm>

#include "common/groups.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/control/switches.h"
#include "host/editor/run/editor_services.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/notify.h"
#include "host/editor/state/sysvars.h"

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
    setFaultPlan({});
    clearModuleFaults();
    clearEffects();
    state.database = &database;
    setCurrentDocumentState(&state);
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    setInputSource(&answers);
}

EditorTest::~EditorTest() {
    resetEditor();
    EXPECT_EQ(moduleFaults(), std::vector<std::string>());
    clearModuleFaults();
    setCurrentDocumentState(nullptr);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

ObjectBody& EditorTest::create(const std::string& groups, bool entity) {
    const std::size_t end = groups.find(';');
    const std::string type = groups.substr(0, end);
    std::string literal = end == groups.npos ? "" : groups.substr(end + 1), text;
    std::replace(literal.begin(), literal.end(), ';', '|');
    const std::uint64_t handle = store.handleSeed();
    addTag(text, 0, type);
    addHandleTag(text, 5, handle);
    if (entity && ("|" + literal).find("|8 ") == std::string::npos) addTag(text, 8, "0");
    text += storedGroups(literal);
    const std::string_view kept = store.keep(text);
    ObjectBody* body = store.create(kindOf(type, kept, entity), kept, handle);
    store.raiseHandleSeed(handle + 1);
    return *body;
}

AcDbObjectId EditorTest::add(const std::string& groups, Index owner) {
    ObjectBody& body = create(groups, true);
    store.appendChild(owner == kNoIndex ? store.modelSpace() : owner, body);
    entities.push_back(store.idOf(body));
    return entities.back();
}

ObjectBody& EditorTest::addRecord(const std::string& table, const std::string& groups) {
    const Index owner = store.table(table);
    ObjectBody& record = create(groups, false);
    store.appendChild(owner, record);
    store.indexSymbol(owner, record, symbolName(record));
    return record;
}

Index EditorTest::addBlock(const std::string& name, const std::string& base) {
    const ObjectBody& record = addRecord("BLOCK_RECORD", "BLOCK_RECORD;2 " + name);
    ObjectBody& begin = create("BLOCK;2 " + name + ";" + base, false);
    begin.owner = record.self;
    store.blockParts(record.self).begin = begin.self;
    return record.self;
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

std::wstring EditorTest::handent(AcDbObjectId id) {
    wchar_t buffer[17];
    id.handle().getIntoAsciiBuffer(buffer);
    return L"(handent \"" + std::wstring(buffer) + L"\")";
}

void EditorTest::erase(AcDbObjectId id) { store.setErased(*Store::resolve(id), true); }

std::vector<std::string> EditorTest::takeFaults() {
    std::vector<std::string> faults = moduleFaults();
    clearModuleFaults();
    return faults;
}

std::vector<std::wstring> EditorTest::takeNotifications() {
    std::vector<std::wstring> texts = effectTexts(EffectKind::Notification);
    clearEffects();
    return texts;
}

}  // namespace tests
