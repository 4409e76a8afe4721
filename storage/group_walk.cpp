// Looks at one entity of a membership walk, and steps from one entity to the next.
#include "group_walk.h"

#include "diagnostics.h"
#include "group_naming.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"
#include "number_text.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupWalk";
const int kCountAttribute = 2;

std::wstring handleTextOf(const ads_name name) {
    AcDbObjectId id;
    DIAG_CHECK(acdbGetObjectId(id, name) == Acad::eOk);
    return handleText(id);
}

/// Id of the sequence end of an entity that owns one and that the walk steps over, else null.
AcDbObjectId sequenceEndToStepOver(AcDbEntity& entity) {
    Opened<AcDbSequenceEnd> end;
    if (AcDbBlockReference* reference = AcDbBlockReference::cast(&entity)) {
        // The block may define attributes while this reference has none: then no end exists.
        if (blockHasAttributeDefinitions(*reference)) {
            reference->openSequenceEnd(end.receive(), AcDb::kForRead);
        }
    } else if (AcDb2dPolyline* polyline = AcDb2dPolyline::cast(&entity)) {
        DIAG_CHECK(polyline->openSequenceEnd(end.receive(), AcDb::kForRead) == Acad::eOk);
    }
    return end.isOpen() ? end->objectId() : AcDbObjectId();
}

/// An end marker: the walk jumps to the begin marker that it names. False for a second one.
bool jump(const AcDbObjectId& current, const AcDbAttribute& attribute, WalkState& state) {
    if (state.m_bBeginFound) return false;
    state.m_bBeginFound = true;
    state.m_sText = attribute.textStringConst();
    state.m_idBegin = idFromHandleText(state.m_sText);
    state.m_idEnd = current;
    return true;
}

/// Takes the count and moves to the first member: past the sequence end behind the attribute.
void readCount(const AcDbAttribute& attribute, WalkState& state) {
    state.m_nCount = integerOf(attribute.textStringConst());
    state.m_bCounted = true;
    state.m_sText.clear();
    ads_name name = {};
    DIAG_CHECK(acdbGetAdsName(name, attribute.objectId()) == Acad::eOk);
    if (acdbEntNext(name, name) == RTNORM && acdbEntNext(name, name) == RTNORM) {
        state.m_sText = handleTextOf(name);
    }
}

}  // namespace

WalkState::WalkState(bool beginFound)
    : m_bBeginFound(beginFound), m_bAbort(false), m_bCounted(false), m_nCount(0) {}

GroupWalk::GroupWalk() {
    const std::wstring prefix = groupPrefix();
    m_sBeginTag = prefix + GroupSuffix::kBeginMarker;
    m_sEndTag = prefix + GroupSuffix::kEndMarker;
}

bool GroupWalk::visit(const AcDbObjectId& current, WalkState& state) const {
    Opened<AcDbEntity> entity;
    DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), current, AcDb::kForRead) == Acad::eOk);
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference == nullptr || !blockHasAttributeDefinitions(*reference)) return true;
    bool member = true;
    int index = 1;
    const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
    for (; !attributes.done(); attributes->step()) {
        Opened<AcDbAttribute> attribute;
        if (!DIAG_CHECK(reference->openAttribute(attribute.receive(), attributes->objectId(),
                                                 AcDb::kForRead) == Acad::eOk)) {
            break;
        }
        const std::wstring tag = attribute->tagConst();
        if (tag == m_sEndTag) {
            member = false;
            if (!jump(current, *attribute.get(), state)) state.m_bAbort = true;
        } else if (tag == m_sBeginTag) {
            state.m_idBegin = current;
            if (!state.m_bBeginFound) {
                state.m_bAbort = true;
                return false;
            }
            if (index == kCountAttribute) {
                member = false;
                readCount(*attribute.get(), state);
            }
            ++index;
        } else {
            break;  // only a first attribute can make an entity a marker
        }
    }
    return member;
}

std::wstring nextEntityHandle(const AcDbObjectId& entityId) {
    ads_name name = {};
    if (acdbGetAdsName(name, entityId) != Acad::eOk) return std::wstring();
    Opened<AcDbEntity> entity;
    if (DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), entityId, AcDb::kForRead) == Acad::eOk)) {
        const AcDbObjectId end = sequenceEndToStepOver(*entity.get());
        if (!end.isNull()) {
            DIAG_CHECK(acdbGetAdsName(name, end) == Acad::eOk);
        }
    }
    entity.close();
    ads_name next = {};
    if (acdbEntNext(name, next) != RTNORM) return std::wstring();
    return handleTextOf(next);
}
