// Symbol table records: texts of new ones, the rules of their names, layers and spaces.
#include "host/store/symbol_records.h"

#include "host/objectarx/symbol_tables.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

/// Makes a BLOCK or ENDBLK, whose own tags are in the drawing's encoding.
Index makePart(Store& store, Kind kind, const ObjectBody& record, const std::string& own) {
    const bool begins = kind == Kind::BlockBegin;
    const std::string tags = storedTags({{0, begins ? "BLOCK" : "ENDBLK"},
                                         {100, "AcDbEntity"},
                                         {8, "0"},
                                         {100, begins ? "AcDbBlockBegin" : "AcDbBlockEnd"}});
    ObjectBody& part = store.make(kind, tags, record.self);
    placeText(part, std::string(part.tags()) + own);
    return part.self;
}

bool beginsWith(std::wstring_view name, std::wstring_view beginning) {
    return foldCase(name).compare(0, beginning.size(), foldCase(beginning)) == 0;
}

}  // namespace

std::string newRecordText(std::string_view type, std::string_view subclass) {
    return storedTags(
        {{0, type}, {100, "AcDbSymbolTableRecord"}, {100, subclass}, {2, ""}, {70, "0"}});
}

bool symbolNameIsValid(std::wstring_view name, bool anonymous) {
    constexpr std::size_t kLongestName = 255;
    if (name.empty() || name.size() > kLongestName) return false;
    if (anonymous && name.front() == L'*') name.remove_prefix(1);
    const bool hasControls = name.find_first_of(L"\t\n\v\f\r") != std::wstring_view::npos;
    return !hasControls && name.find_first_of(L"|*\\/:;<>?\",=`") == std::wstring_view::npos;
}

void addRecord(Store& store, Index table, ObjectBody& record, std::wstring_view name) {
    store.appendChild(table, record);
    store.indexSymbol(table, record, name);
}

void makeBlockParts(Store& store, const ObjectBody& record, std::string_view pointTags) {
    constexpr int kAnonymous = 1;
    const std::wstring name = symbolName(record);
    const std::string stored = store.encode(name);
    std::string own;
    addTag(own, 2, stored);
    addTag(own, 70, name.front() == L'*' && !isSpaceName(name) ? kAnonymous : 0);
    addPointTag(own, 10, realTag(pointTags, 10), realTag(pointTags, 20), realTag(pointTags, 30));
    own += storedTags({{3, stored}, {1, ""}});
    const Index begin = makePart(store, Kind::BlockBegin, record, own);
    store.blockParts(record.self) = {begin, makePart(store, Kind::BlockEnd, record, {})};
    store.blockOrder().push_back(record.self);
}

void completeBlock(Store& store, ObjectBody& record) {
    makeBlockParts(store, record, record.tags());
    std::string text = newRecordText("BLOCK_RECORD", "AcDbBlockTableRecord");
    setTag(text, 2, store.encode(symbolName(record)));
    // No layout; it can be exploded, and scaled unevenly.
    text += storedTags({{340, "0"}, {280, "1"}, {281, "0"}});
    placeText(record, withIdentity(text, record.handle, store.at(record.owner).handle));
}

bool isPaperSpaceName(std::wstring_view name) { return beginsWith(name, ACDB_PAPER_SPACE); }

bool isSpaceName(std::wstring_view name) {
    return isPaperSpaceName(name) || foldCase(name) == foldCase(ACDB_MODEL_SPACE);
}

LayerState layerState(const ObjectBody& layer) {
    constexpr int kFrozen = 1, kLocked = 4;
    const int flags = integerTag(layer.tags(), 70);
    const bool off = integerTag(layer.tags(), 62, 7) < 0;
    return {off, (flags & kFrozen) != 0, (flags & kLocked) != 0};
}

bool setCurrentLayer(Store& store, const ObjectBody& layer) {
    if (layerState(layer).frozen) return false;
    store.setHeaderValue("$CLAYER", 8, store.encode(symbolName(layer)));
    return true;
}

}  // namespace host
