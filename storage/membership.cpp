// Walks drawing order to find and verify the group of an entity.
#include "membership.h"

#include <utility>

#include "diagnostics.h"
#include "group_naming.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"

namespace {

constexpr CheckSource DIAG_SOURCE = L"Membership";
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
    return end.isOpen() ? end->objectId() : AcDbObjectId();
}

/// Says what a walk came to; true when it found a group.
bool announce(const GroupVerdict& verdict) {
    if (!verdict.found) {
        acedPrompt(L"\n\tSome are not grouped entities.");
    } else if (verdict.missing > 0) {
        acutPrintf(L"\nNote: %d member(s) missing from original Group.", verdict.missing);
    }
    return verdict.found;
}

/// One run of the walk. Each look at an entity either collects a member or, at a marker, moves on.
class GroupWalk {
  public:
    explicit GroupWalk(const AcDbObjectId& start) : m_startText(handleText(start)) {
        const std::wstring prefix = groupPrefix();
        m_beginTag = prefix + GroupSuffix::kBeginMarker;
        m_endTag = prefix + GroupSuffix::kEndMarker;
        m_members.append(start);
        m_text = nextEntityHandle(start);
    }

    /// Walks until the start is met again, the drawing ends, the order of markers is wrong, or
    /// something is met in front of the end marker that is known to have no group.
    void run(const GroupSearch* search = nullptr) {
        AcDbObjectId current = idFromHandleText(m_text);
        while (m_text != m_startText && !m_abort && !current.isNull()) {
            if (visit(current) == Step::kMember) {
                m_members.append(current);
                if (!m_beginFound) m_beforeEnd = m_members.length();
                if (!m_beginFound && search != nullptr && endsAt(search->find(current))) break;
                m_text = nextEntityHandle(current);
            }
            current = idFromHandleText(m_text);
        }
    }

    GroupVerdict verdict() const {
        const int missing = m_count - m_members.length();
        return {!m_abort && m_beginFound && missing >= 0, missing, !m_abort && !m_beginFound};
    }

    /// The group in the order of verifyGroup, once it was found.
    void give(AcDbObjectIdArray& group) const {
        group.setLogicalLength(0);
        group.append(m_begin);
        group.append(m_members);
        group.append(m_end);
    }

    /// Leaves of the members those from which a walk would come to the same; the start is one. None
    /// when that is not certain.
    AcDbObjectIdArray takeSharers() {
        int sharers = m_beforeEnd;
        // A walk that has found its begin marker may still depend on where it began, unless first
        // member to last, end marker and begin marker are one ring.
        if (!m_abort && !m_named.isNull()) {
            const bool ring = m_text == m_startText && m_oneBegin && !isMarker(m_members.first());
            sharers = ring ? m_members.length() : 0;
        }
        m_members.setLogicalLength(sharers);
        return std::move(m_members);
    }

  private:
    enum class Step { kMember, kMoved };

    /// Looks at the entity's attributes; kMember when nothing makes it a marker.
    Step visit(const AcDbObjectId& current) {
        const bool named = std::exchange(m_jumped, false);
        Opened<AcDbEntity> entity;
        DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), current, AcDb::kForRead) == Acad::eOk);
        AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
        if (reference == nullptr || !blockHasAttributeDefinitions(*reference)) {
            return Step::kMember;
        }
        Step step = Step::kMember;
        int index = 1;
        const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
        for (; !attributes.done(); attributes->step()) {
            Opened<AcDbAttribute> attribute;
            if (!DIAG_CHECK(reference->openAttribute(attribute.receive(), attributes->objectId(),
                                                     AcDb::kForRead) == Acad::eOk)) {
                break;
            }
            const std::wstring tag = attribute->tagConst();
            if (tag == m_endTag) {
                step = meetEndMarker(current, *attribute.get());
            } else if (tag == m_beginTag) {
                m_begin = current;
                if (!m_beginFound) return abandon();
                if (!named) m_oneBegin = false;
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
        m_jumped = true;
        m_text = attribute.textStringConst();
        m_begin = idFromHandleText(m_text);
        m_named = m_begin;
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
        return Step::kMoved;
    }

    /// A start that is a marker may end a walk that goes over it; its own stops there instead.
    bool endsAt(const GroupVerdict* known) {
        if (known == nullptr || known->found || isMarker(m_members.first())) return false;
        m_abort = !known->endless;
        return true;
    }

    /// True also for what cannot be read.
    bool isMarker(const AcDbObjectId& id) const {
        std::wstring tag;
        return !readMarkerTag(id, tag) || tag == m_beginTag || tag == m_endTag;
    }

    std::wstring m_beginTag;
    std::wstring m_endTag;
    std::wstring m_startText;
    std::wstring m_text;  // handle text of the entity that comes next
    AcDbObjectIdArray m_members{0, kIdListGrowth};
    AcDbObjectId m_begin;
    AcDbObjectId m_end;
    AcDbObjectId m_named;  // what the end marker names
    int m_count = 0;
    int m_beforeEnd = 1;  // members up to the end marker
    bool m_beginFound = false;
    bool m_jumped = false;   // the next look is at what the end marker names
    bool m_oneBegin = true;  // no begin marker stands elsewhere
    bool m_abort = false;
};

}  // namespace

std::wstring nextEntityHandle(const AcDbObjectId& entityId) {
    ads_name name = {};
    if (acdbGetAdsName(name, entityId) != Acad::eOk) return {};
    Opened<AcDbEntity> entity;
    if (DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), entityId, AcDb::kForRead) == Acad::eOk)) {
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
    const bool found = announce(walk.verdict());
    if (found) walk.give(group);
    return found;
}

bool GroupSearch::verify(AcDbObjectIdArray& group, const AcDbObjectId& start) {
    remember();  // only now: a search that is asked once does not pay for the next question
    if (const GroupVerdict* known = find(start)) {
        if (!announce(*known)) return false;
        group.setLogicalLength(0);
        group.append(start);
        return true;
    }
    GroupWalk walk(start);
    walk.run(this);
    m_lastVerdict = walk.verdict();
    const bool found = announce(m_lastVerdict);
    if (found) walk.give(group);
    m_lastSharers = walk.takeSharers();
    return found;
}

void GroupSearch::forget() {
    remember();
    m_known.clear();
}

const GroupVerdict* GroupSearch::find(const AcDbObjectId& id) const {
    static constexpr GroupVerdict endless{false, 0, true};
    return m_endless.has(id) ? &endless : m_known.find(id);
}

void GroupSearch::remember() {
    for (int i = 0; i < m_lastSharers.length(); ++i) {
        if (m_lastVerdict.endless) {
            m_endless.add(m_lastSharers[i]);
        } else {
            m_known.add(m_lastSharers[i], m_lastVerdict);
        }
    }
    m_lastSharers.setLogicalLength(0);
}
