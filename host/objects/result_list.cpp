// Content of result buffers: kinds of values, lists from arguments, from tags and from lists.
#include <cstdarg>

#include "host/control/faults.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"
#include "host/tags/tag_codes.h"

namespace host {
namespace {

/// By TagType, in its order.
constexpr ValueKind kKinds[] = {
    ValueKind::Invalid, ValueKind::Text,   ValueKind::Point, ValueKind::Point,
    ValueKind::Real,    ValueKind::Short,  ValueKind::Long,  ValueKind::Int64,
    ValueKind::Short,   ValueKind::Binary, ValueKind::Text,  ValueKind::Name,
    ValueKind::Name,    ValueKind::Name,   ValueKind::Name,  ValueKind::Name,
};

struct KindRange {
    int first;
    int last;
    ValueKind kind;
};

/// Types that stand in no drawing.
constexpr KindRange kOtherKinds[] = {
    {-4, -4, ValueKind::Text},
    {-2, -1, ValueKind::Name},
    {RTNONE, RTNONE, ValueKind::Nothing},
    {RTREAL, RTREAL, ValueKind::Real},
    {RTPOINT, RTPOINT, ValueKind::Point},
    {RTSHORT, RTSHORT, ValueKind::Short},
    {RTANG, RTANG, ValueKind::Real},
    {RTSTR, RTSTR, ValueKind::Text},
    {RTENAME, RTPICKS, ValueKind::Name},
    {RTORINT, RTORINT, ValueKind::Real},
    {RT3DPOINT, RT3DPOINT, ValueKind::Point},
    {RTLONG, RTLONG, ValueKind::Long},
    {RTVOID, RTVOID, ValueKind::Nothing},
    {RTLB, RTNIL, ValueKind::Nothing},
    {RTDXF0, RTDXF0, ValueKind::Text},
    {RTT, RTT, ValueKind::Nothing},
};

std::string bytesOfHex(std::string_view digits) {
    std::string bytes;
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
        const auto byte = parseHandle(digits.substr(at, 2));
        if (!byte) break;
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

/// Coordinate in the next tag when that has the wanted code; the reader then moves behind it.
double coordinate(TagReader& reader, int code) {
    TagReader ahead = reader;
    Tag tag;
    if (!ahead.next(tag) || tag.code != code) return 0.0;
    reader = ahead;
    return parseReal(tag.value).value_or(0.0);
}

/// Adds one pair of acutBuildList; false for a type that has no value there.
bool addArgument(ResultList& list, int type, va_list& arguments) {
    const int stored = type == RTDXF0 ? 0 : type;
    switch (valueKindOf(type)) {
        case ValueKind::Nothing:
            list.addMark(stored);
            return true;
        case ValueKind::Real:
            list.addReal(stored, va_arg(arguments, double));
            return true;
        case ValueKind::Short:
        case ValueKind::Long:
            list.addInteger(stored, va_arg(arguments, int));
            return true;
        case ValueKind::Int64:
            list.addInteger(stored, va_arg(arguments, Adesk::Int64));
            return true;
        case ValueKind::Text: {
            const ACHAR* text = va_arg(arguments, const ACHAR*);
            if (text != nullptr) list.addText(stored, text);
            return text != nullptr;
        }
        case ValueKind::Point: {
            const ads_real* point = va_arg(arguments, const ads_real*);
            if (point != nullptr) list.addPoint(stored, asPnt3d(point));
            return point != nullptr;
        }
        case ValueKind::Name: {
            resbuf buffer{};
            const Adesk::IntPtr* name = va_arg(arguments, const Adesk::IntPtr*);
            if (name == nullptr) return false;
            buffer.restype = static_cast<short>(stored);
            ads_name_set(name, buffer.resval.rlname);
            list.addCopy(buffer);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace

ValueKind valueKindOf(int type) {
    if (type == 1005) return ValueKind::Text;  // a handle, but given as its digits
    for (const KindRange& range : kOtherKinds)
        if (type >= range.first && type <= range.last) return range.kind;
    return kKinds[static_cast<int>(tagTypeOf(type))];
}

void ResultList::addReal(int type, double value) { append(type).resval.rreal = value; }

void ResultList::addInteger(int type, long long value) {
    ads_u_val& target = append(type).resval;
    switch (valueKindOf(type)) {
        case ValueKind::Long:
            target.rlong = static_cast<Adesk::Int32>(value);
            break;
        case ValueKind::Int64:
            target.mnInt64 = value;
            break;
        default:
            target.rint = static_cast<short>(value);
    }
}

void ResultList::addPoint(int type, const AcGePoint3d& point) {
    ads_real* target = append(type).resval.rpoint;
    target[0] = point.x;
    target[1] = point.y;
    target[2] = point.z;
}

void ResultList::addName(int type, AcDbObjectId id) { nameOfId(id, append(type).resval.rlname); }

void ResultList::addMark(int type) { append(type); }

void ResultList::addCopy(const resbuf& buffer) {
    const ValueKind kind = valueKindOf(buffer.restype);
    const ads_binary& chunk = buffer.resval.rbinary;
    if (kind == ValueKind::Text) {
        const ACHAR* text = buffer.resval.rstring;
        addText(buffer.restype, text != nullptr ? text : L"");
    } else if (kind == ValueKind::Binary) {
        const bool holds = chunk.buf != nullptr && chunk.clen > 0;
        addBinary(buffer.restype, holds ? std::string_view(chunk.buf, chunk.clen) : "");
    } else if (kind != ValueKind::Invalid) {
        append(buffer.restype).resval = buffer.resval;
    }
}

void ResultList::addTag(const Store& store, const Tag& tag, TagReader& reader) {
    switch (valueKindOf(tag.code)) {
        case ValueKind::Real:
            addReal(tag.code, parseReal(tag.value).value_or(0.0));
            break;
        case ValueKind::Short:
        case ValueKind::Long:
        case ValueKind::Int64:
            addInteger(tag.code, parseInteger(tag.value).value_or(0));
            break;
        case ValueKind::Binary:
            addBinary(tag.code, bytesOfHex(tag.value));
            break;
        case ValueKind::Name: {
            const ObjectBody* target = store.byHandle(tag.value);
            addName(tag.code, target != nullptr ? store.idOf(*target) : AcDbObjectId());
            break;
        }
        case ValueKind::Point: {
            const double x = parseReal(tag.value).value_or(0.0);
            const double y = coordinate(reader, tag.code + 10);
            addPoint(tag.code, {x, y, coordinate(reader, tag.code + 20)});
            break;
        }
        case ValueKind::Text:
            addText(tag.code, store.decode(tag.value));
            break;
        default:
            break;  // a code that result buffers have no value for
    }
}

AcDbObjectId idOfName(const ads_name name) {
    if (name == nullptr || name[1] != 0) return AcDbObjectId();
    return AcDbObjectId::fromWord(static_cast<Adesk::UInt64>(name[0]));
}

void nameOfId(AcDbObjectId id, ads_name name) {
    name[0] = static_cast<Adesk::IntPtr>(id.asWord());
    name[1] = 0;
}

}  // namespace host

resbuf* acutBuildList(int type, ...) {
    if (host::callFails("acutBuildList")) return nullptr;
    host::ResultList list;
    va_list arguments;
    va_start(arguments, type);
    bool valid = true;
    for (; valid && type != 0 && type != RTNONE; type = valid ? va_arg(arguments, int) : 0) {
        valid = host::addArgument(list, type, arguments);
    }
    va_end(arguments);
    return valid ? list.release() : nullptr;
}
