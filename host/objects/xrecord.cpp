// AcDbXrecord: a chain of tags as an object's content.
#include "host/control/faults.h"
#include "host/objects/opening.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"
#include "host/tags/tag_walk.h"

using namespace host;

namespace {

/// Where the data stands in an xrecord's tags: behind the marker and the merge flag (280), before
/// any extended data.
struct DataPlace {
    std::size_t begin;
    std::size_t end;
};

DataPlace dataPlace(std::string_view text) {
    TagWalk tag(text);
    DataPlace place{text.size(), text.size()};
    bool first = true;
    while (tag.next() && tag.zone() != TagZone::Extended) {
        if (tag.zone() != TagZone::Data) continue;
        const bool isMark = tag.role() == TagRole::Marker || (first && tag.code() == 280);
        first = tag.role() == TagRole::Marker;
        if (isMark) place.begin = tag.end();
        place.end = tag.end();
    }
    return place;
}

std::string hexOf(const ads_binary& bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (short at = 0; bytes.buf != nullptr && at < bytes.clen; ++at) {
        const auto byte = static_cast<unsigned char>(bytes.buf[at]);
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

/// Appends a reference as a handle; the empty name as 0. False for an id that names no object of
/// the xrecord's drawing.
bool addReference(std::string& text, const ObjectBody& xrecord, const resbuf& item) {
    const AcDbObjectId id = idOfName(item.resval.rlname);
    const ObjectBody* const target = bodyOfId(id, "AcDbXrecord::setFromRbChain");
    if (target == nullptr && !id.isNull()) return false;
    if (target != nullptr && xrecord.store != nullptr && target->store != xrecord.store)
        return false;
    addHandleTag(text, item.restype, target != nullptr ? target->handle : 0);
    return true;
}

/// Appends one item as tags; eInvalidDxfCode or eInvalidResBuf when it has no place there.
Acad::ErrorStatus addItem(std::string& text, const ObjectBody& xrecord, const resbuf& item) {
    const int code = item.restype;
    if (code < 1 || code > 369 || code == 5 || code == 105) return Acad::eInvalidDxfCode;
    switch (valueKindOf(code)) {
        case ValueKind::Text: {
            const ACHAR* const given = item.resval.rstring;
            const std::string value = xrecord.encode(given != nullptr ? given : L"");
            if (value.size() > kLongestValue) return Acad::eInvalidResBuf;
            addTag(text, code, value);
            break;
        }
        case ValueKind::Real:
            addTag(text, code, item.resval.rreal);
            break;
        case ValueKind::Short:
            addTag(text, code, int{item.resval.rint});
            break;
        case ValueKind::Long:
            addTag(text, code, int{item.resval.rlong});
            break;
        case ValueKind::Int64:
            addTag(text, code, std::to_string(item.resval.mnInt64));
            break;
        case ValueKind::Binary:
            addTag(text, code, hexOf(item.resval.rbinary));
            break;
        case ValueKind::Point: {
            const ads_real* const point = item.resval.rpoint;
            addPointTag(text, code, point[0], point[1], point[2]);
            break;
        }
        case ValueKind::Name:
            return addReference(text, xrecord, item) ? Acad::eOk : Acad::eInvalidResBuf;
        default:
            return Acad::eInvalidDxfCode;
    }
    return Acad::eOk;
}

}  // namespace

AcDbXrecord::AcDbXrecord()
    : AcDbObject(freshBody(Kind::Xrecord,
                           storedTags({{0, "XRECORD"}, {100, "AcDbXrecord"}, {280, "1"}}))) {}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase*) {
    if (callFails("AcDbXrecord::setFromRbChain")) return Acad::eInvalidResBuf;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    std::string data;
    for (const resbuf* item = &chain; item != nullptr; item = item->rbnext) {
        const Acad::ErrorStatus status = addItem(data, content, *item);
        if (status != Acad::eOk) return status;
    }
    std::string text(content.tags());
    const DataPlace place = dataPlace(text);
    text.replace(place.begin, place.end - place.begin, data);
    content.setTags(text);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const {
    if (chain != nullptr) *chain = nullptr;
    if (callFails("AcDbXrecord::rbChain")) return Acad::eOutOfMemory;
    if (chain == nullptr) return Acad::eInvalidInput;
    const ObjectBody& content = body();
    const DataPlace place = dataPlace(content.tags());
    TagReader reader(content.tags().substr(place.begin, place.end - place.begin));
    Tag tag;
    ResultList list;
    const Store* const store = content.store;
    static const Store& unbound = *new Store;  // decodes texts of new objects
    while (reader.next(tag))
        list.addTag(store != nullptr ? *store : unbound, tag, reader);
    *chain = list.release();
    return Acad::eOk;
}
