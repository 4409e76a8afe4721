// Reads the entities of a space and what makes markers of some.
#include "inspection/markers.h"

#include <climits>
#include <cwchar>
#include <unordered_map>

#include "group_naming.h"
#include "host/text/text_codec.h"
#include "host_guards.h"

namespace inspection {
namespace {

bool same(const std::wstring& left, const std::wstring& right) {
    return host::foldCase(left) == host::foldCase(right);
}

/// What a marker's block says about all its references.
struct BlockFacts {
    std::wstring name;
    bool definesAttributes = false;
};

class SpaceReader {
  public:
    SpaceReader(const Names& names, const Names& others) : m_names(names), m_others(others) {}

    Reading read(AcDbObjectId space) {
        Reading reading;
        Opened<AcDbBlockTableRecord> record;
        Iterator<AcDbBlockTableRecordIterator> entities;
        if (acdbOpenObject(record.receive(), space, AcDb::kForRead) != Acad::eOk ||
            record->newIterator(entities.receive()) != Acad::eOk) {
            return reading;
        }
        for (; !entities->done(); entities->step()) {
            Opened<AcDbEntity> entity;
            if (entities->getEntity(entity.receive(), AcDb::kForRead) != Acad::eOk) continue;
            reading.places.push_back({entity->objectId(), hasRecord(*entity.get())});
            AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
            if (reference != nullptr) readReference(*reference, reading);
        }
        return reading;
    }

  private:
    bool hasRecord(const AcDbEntity& entity) const {
        const AcDbObjectId id = entity.extensionDictionary();
        Opened<AcDbDictionary> dictionary;
        Opened<AcDbXrecord> record;
        AcDbObjectId recordId;
        if (id.isNull() || acdbOpenObject(dictionary.receive(), id, AcDb::kForRead) != Acad::eOk ||
            dictionary->getAt(m_names.recordKey.c_str(), recordId) != Acad::eOk ||
            acdbOpenObject(record.receive(), recordId, AcDb::kForRead) != Acad::eOk) {
            return false;
        }
        ResultBuffers chain;
        if (record->rbChain(chain.receive()) != Acad::eOk) return false;
        constexpr short kTextCode = 1;
        const resbuf* item = chain.get();
        while (item != nullptr && item->restype != kTextCode)
            item = item->rbnext;
        return item != nullptr && item->resval.rstring != nullptr &&
               item->resval.rstring == m_names.recordText;
    }

    const BlockFacts& factsOf(AcDbObjectId block) {
        const auto [place, isNew] = m_blocks.try_emplace(block.asWord());
        Opened<AcDbBlockTableRecord> record;
        if (!isNew || acdbOpenObject(record.receive(), block, AcDb::kForRead) != Acad::eOk)
            return place->second;
        ACHAR* name = nullptr;
        if (record->getName(name) == Acad::eOk) place->second.name = name;
        acutDelString(name);
        place->second.definesAttributes = record->hasAttributeDefinitions();
        return place->second;
    }

    void readReference(AcDbBlockReference& reference, Reading& reading) {
        const BlockFacts& block = factsOf(reference.blockTableRecord());
        const std::size_t place = reading.places.size() - 1;
        for (const bool begin : {true, false}) {
            if (same(block.name, begin ? m_others.begin : m_others.end))
                reading.foreign.push_back({place, begin});
        }
        Marker marker;
        marker.place = place;
        marker.selectedBegin = same(block.name, m_names.begin);
        // The form of the names: "_G" and one character behind the prefix.
        marker.selected = block.name.size() == m_names.begin.size() &&
                          same(block.name.substr(0, block.name.size() - 1),
                               m_names.begin.substr(0, m_names.begin.size() - 1));
        if (block.definesAttributes) readAttributes(reference, marker);
        if (!marker.selected && !marker.beginTag && !marker.endTag) return;
        marker.locked = onLockedLayer(reference);
        AcDbHandle handle;
        reference.getAcDbHandle(handle);
        marker.handle = textOf(handle);
        reading.markers.push_back(std::move(marker));
    }

    void readAttributes(AcDbBlockReference& reference, Marker& marker) const {
        std::vector<std::wstring> tags;
        const Iterator<AcDbObjectIterator> attributes(reference.attributeIterator());
        for (; !attributes.done(); attributes->step()) {
            Opened<AcDbAttribute> attribute;
            if (reference.openAttribute(attribute.receive(), attributes->objectId(),
                                        AcDb::kForRead) != Acad::eOk) {
                break;
            }
            tags.emplace_back(attribute->tagConst());
            if (tags.size() == 1) marker.text = attribute->textStringConst();
            if (tags.size() == 2 && tags[1] == m_names.begin)
                marker.count = attribute->textStringConst();
        }
        if (tags.empty()) return;
        const bool endsExactly = tags[0] == m_names.end;
        marker.beginTag = tags[0] == m_names.begin;
        marker.endTag = same(tags[0], m_names.end);
        marker.exactTag = marker.beginTag || endsExactly;
        const bool asMade = marker.beginTag ? tags.size() == 2 && tags[1] == m_names.begin
                                            : endsExactly && tags.size() == 1;
        Opened<AcDbSequenceEnd> end;
        marker.sound =
            asMade && reference.openSequenceEnd(end.receive(), AcDb::kForRead) == Acad::eOk;
    }

    static bool onLockedLayer(const AcDbEntity& entity) {
        Opened<AcDbLayerTableRecord> layer;
        return acdbOpenObject(layer.receive(), entity.layerId(), AcDb::kForRead) == Acad::eOk &&
               layer->isLocked();
    }

    static std::string textOf(const AcDbHandle& handle) {
        ACHAR text[17] = {};
        handle.getIntoAsciiBuffer(text);
        return host::toUtf8(text);
    }

    const Names& m_names;
    const Names& m_others;
    std::unordered_map<Adesk::UInt64, BlockFacts> m_blocks;
};

/// The sub-entity behind which the walk over members goes on, or the null id where it does not step
/// over what an entity owns.
AcDbObjectId steppedOverTo(AcDbObjectId id) {
    Opened<AcDbEntity> entity;
    Opened<AcDbSequenceEnd> end;
    if (acdbOpenAcDbEntity(entity.receive(), id, AcDb::kForRead) != Acad::eOk) return {};
    if (AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get())) {
        Opened<AcDbBlockTableRecord> block;
        if (acdbOpenObject(block.receive(), reference->blockTableRecord(), AcDb::kForRead) !=
                Acad::eOk ||
            !block->hasAttributeDefinitions() ||
            reference->openSequenceEnd(end.receive(), AcDb::kForRead) != Acad::eOk) {
            return {};
        }
    } else if (AcDb2dPolyline* polyline = AcDb2dPolyline::cast(entity.get())) {
        if (polyline->openSequenceEnd(end.receive(), AcDb::kForRead) != Acad::eOk) return {};
    }
    return end.isOpen() ? end->objectId() : AcDbObjectId();
}

/// How many entities a walk over members meets between one main entity and the next.
long subEntitiesMet(const std::vector<Place>& places, std::size_t place) {
    const AcDbObjectId id = places[place].id;
    const AcDbObjectId next = place + 1 < places.size() ? places[place + 1].id : AcDbObjectId();
    const AcDbObjectId end = steppedOverTo(id);
    ads_name name = {};
    long count = 0;
    if (acdbGetAdsName(name, end.isNull() ? id : end) != Acad::eOk) return count;
    AcDbObjectId met;
    while (acdbEntNext(name, name) == RTNORM && acdbGetObjectId(met, name) == Acad::eOk &&
           met != next) {
        ++count;
    }
    return count;
}

}  // namespace

Names::Names(std::wstring word)
    : prefix(std::move(word)),
      begin(prefix + GroupSuffix::kBeginMarker),
      end(prefix + GroupSuffix::kEndMarker),
      recordKey(prefix + GroupSuffix::kRecordKey),
      recordText(prefix + GroupSuffix::kRecordText) {}

Reading readSpace(AcDbObjectId block, const Names& names, const Names& otherNames) {
    return SpaceReader(names, otherNames).read(block);
}

const Steps::Stretch& Steps::stretch(std::size_t marker) {
    Stretch& stretch = m_behind[marker];
    if (stretch.plain >= 0) return stretch;
    const auto& markers = m_reading.markers;
    const std::size_t first = markers[marker].place;
    const std::size_t last =
        marker + 1 < markers.size() ? markers[marker + 1].place : m_reading.places.size();
    stretch = {0, subEntitiesMet(m_reading.places, first)};
    for (std::size_t place = first + 1; place < last; ++place)
        stretch.plain += 1 + subEntitiesMet(m_reading.places, place);
    return stretch;
}

AcDbObjectId resolve(const std::wstring& handleText) {
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId id;
    if (handleText.empty() || drawing == nullptr ||
        drawing->getAcDbObjectId(id, false, AcDbHandle(handleText.c_str())) != Acad::eOk) {
        return {};
    }
    return id;
}

std::optional<int> countOf(const std::wstring& text) {
    wchar_t* end = nullptr;
    const long long value = std::wcstoll(text.c_str(), &end, 10);
    if (end == text.c_str()) return std::nullopt;
    return static_cast<int>(value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : value);
}

int digitsOf(const std::wstring& text) {
    return countOf(text.substr(0, text.find_first_not_of(L"0123456789"))).value_or(0);
}

}  // namespace inspection
