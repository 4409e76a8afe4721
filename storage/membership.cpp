// Walks drawing order to find and verify the group of an entity.
#include "membership.h"

#include "diagnostics.h"
#include "group_naming.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"

namespace {

constexpr wchar_t DIAG_SOURCE[] = L"Membership";
constexpr int kListGrowth = 8;
constexpr int kCountAttribute = 2;

std::wstring handleTextOf(const ads_name name) {
    AcDbObjectId id;
    DIAG_CHECK(acdbGetObjectId(id, name) == Acad::eOk);
    return handleText(id);
}

/// Id of the sequence end of an entity that owns one and that the walk steps over, else null.
AcDbObjectId sequenceEndToStepOver(AcDbEntity& entity) {
    Opened<AcDbSequenceEnd> end;
    if (AcDbBlockReference* reference = AcDbBlockReference::cast(&entity)) {
        if (!blockHasAttributeDefinitions(*reference)) return {};
        // The block may define attributes while this reference has none: then no end exists.
        if (reference->openSequenceEnd(end.receive(), AcDb::kForRead) != Acad::eOk) return {};
    } else if (AcDb2dPolyline* polyline = AcDb2dPolyline::cast(&entity)) {
        DIAG_CHECK(polyline->openSequenceEnd(end.receive(), AcDb::kForRead) == Acad::eOk);
    }
    return end ? end->objectId() : AcDbObjectId();
}

/// One run of the walk. Each look at an entity either collects a member or, at a marker, moves on.
class GroupWalk {
  public:
    explicit GroupWalk(const AcDbObjectId& start)
        : m_startText(handleText(start)), m_members(0, kListGrowth) {
        const std::wstring prefix = groupPrefix();
        m_beginTag = prefix + GroupSuffix::kBeginMarker;
        m_endTag = prefix + GroupSuffix::kEndMarker;
        m_members.append(start);
        m_text = nextEntityHandle(start);
    }

    /// Walks until the start is met again, the drawing ends or the order of markers is wrong.
    void run() {
        AcDbObjectId current = idFromHandleText(m_text);
        while (m_text != m_startText && !m_abort && !current.isNull()) {
            if (visit(current) == Step::kMember) {
                m_members.append(current);
                m_text = nextEntityHandle(current);
            }
            current = idFromHandleText(m_text);
        }
    }

    /// True when the walk found a whole group; `group` then receives it.
    bool result(AcDbObjectIdArray& group) {
        const int found = m_members.length();
        if (m_abort || !m_beginFound || found > m_count) return false;
        if (found < m_count) {
            acutPrintf(L"\nNote: %d member(s) missing from original Group.", m_count - found);
        }
        m_members.insertAt(0, m_begin);
        m_members.append(m_end);
        group.setLogicalLength(0);
        group.append(m_members);
        return true;
    }

  private:
    enum class Step { kMember, kMoved };

    /// Looks at the entity's attributes; kMember when nothing makes it a marker.
    Step visit(const AcDbObjectId& current) {
        Opened<AcDbEntity> entity;
        DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), current, AcDb::kForRead) == Acad::eOk);
        AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
        if (reference == nullptr || !blockHasAttributeDefinitions(*reference)) {
            return Step::kMember;
        }
        Step step = Step::kMember;
        int index = 1;
        const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
        for (; attributes && !attributes->done(); attributes->step()) {
            Opened<AcDbAttribute> attribute;
            const bool opened =
                DIAG_CHECK(reference->openAttribute(attribute.receive(), attributes->objectId(),
                                                    AcDb::kForRead) == Acad::eOk);
            if (!opened) break;
            const std::wstring tag = attribute->tagConst();
            if (tag == m_endTag) {
                step = meetEndMarker(current, *attribute.get());
            } else if (tag == m_beginTag) {
                m_begin = current;
                if (!m_beginFound) return abandon();
                if (index == kCountAttribute) step = readCount(*attribute.get());
                ++index;
            } else {
                break;  // only a first attribute can make an entity a marker
            }
        }
        return step;
    }

    Step meetEndMarker(const AcDbObjectId& current, const AcDbAttribute& attribute) {
        if (m_beginFound) return abandon();
        m_beginFound = true;
        m_text = attribute.textStringConst();
        m_begin = idFromHandleText(m_text);
        m_end = current;
        return Step::kMoved;
    }

    /// Takes the count and moves to the first member: past the sequence end behind the attribute.
    Step readCount(const AcDbAttribute& attribute) {
        m_count = _wtoi(attribute.textStringConst());
        m_text.clear();
        ads_name name = {};
        DIAG_CHECK(acdbGetAdsName(name, attribute.objectId()) == Acad::eOk);
        if (acdbEntNext(name, name) == RTNORM && acdbEntNext(name, name) == RTNORM) {
            m_text = handleTextOf(name);
        }
        return Step::kMoved;
    }

    Step abandon() {
        m_abort = true;
        m_members.setLogicalLength(0);
        return Step::kMoved;
    }

    std::wstring m_beginTag;
    std::wstring m_endTag;
    std::wstring m_startText;
    std::wstring m_text;  // handle text of the entity that comes next
    AcDbObjectIdArray m_members;
    AcDbObjectId m_begin;
    AcDbObjectId m_end;
    int m_count = 0;
    bool m_beginFound = false;
    bool m_abort = false;
};

}  // namespace

std::wstring nextEntityHandle(const AcDbObjectId& entityId) {
    ads_name name = {};
    if (acdbGetAdsName(name, entityId) != Acad::eOk) return {};
    Opened<AcDbEntity> entity;
    const bool opened =
        DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), entityId, AcDb::kForRead) == Acad::eOk);
    if (opened) {
        const AcDbObjectId end = sequenceEndToStepOver(*entity.get());
        if (!end.isNull()) {
            DIAG_CHECK(acdbGetAdsName(name, end) == Acad::eOk);
        }
    }
    entity.close();
    ads_name next = {};
    if (acdbEntNext(name, next) != RTNORM) return {};
    return handleTextOf(next);
}

bool verifyGroup(AcDbObjectIdArray& group, const AcDbObjectId& start) {
    GroupWalk walk(start);
    walk.run();
    if (walk.result(group)) return true;
    acedPrompt(L"\n\tSome are not grouped entities.");
    return false;
}
