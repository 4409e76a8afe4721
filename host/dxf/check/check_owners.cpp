// The drawing check: owners, and sequences of sub-entities.
#include "host/dxf/check/check_context.h"

namespace host {
namespace {

std::string ownerText(const CheckContext& context, std::uint64_t handle) {
    const ObjectBody* const owner = context.live(handle);
    if (handle == 0) return "the owner is 0";
    if (owner == nullptr) return "the owner " + formatHandle(handle) + " is not in the drawing";
    return "the owner is " + nameOf(*owner);
}

/// Owner of an object of the OBJECTS section: any that exists, for an XRECORD one of the section;
/// none only for the root dictionary. The reactors of images are made anew on loading.
void checkObjectOwner(CheckContext& context, const ObjectSummary& summary) {
    const ObjectBody& body = *summary.body;
    const bool isRoot = body.self == context.rootDictionary;
    if (!summary.hasOwner) {
        if (body.owner != kNoIndex || isRoot) {
            ++context.ownersAbsent;
        } else {
            context.error(body, "no owner: neither a group 330 nor a dictionary that names it");
        }
        return;
    }
    if (isRoot) {
        if (summary.owner != 0) context.error(body, ownerText(context, summary.owner));
        return;
    }
    const ObjectBody* const owner = context.live(summary.owner);
    if (owner == nullptr) {
        const bool mended = summary.type == "IMAGEDEF_REACTOR";
        context.add(mended ? Severity::Note : Severity::Error, body,
                    ownerText(context, summary.owner));
    } else if (body.owner == kNoIndex) {
        context.error(body, "the owners go round in a circle");
    } else if (body.kind == Kind::Xrecord && !isObjectKind(owner->kind)) {
        context.error(body, ownerText(context, summary.owner) + ", not a dictionary");
    } else if (body.owner != owner->self) {
        context.note(body, ownerText(context, summary.owner) + ", which does not hold it, but " +
                               nameOf(context.store.at(body.owner)) + " does");
    }
}

}  // namespace

void checkOwner(CheckContext& context, const ObjectSummary& summary) {
    const ObjectBody& body = *summary.body;
    if (isObjectKind(body.kind)) return checkObjectOwner(context, summary);
    if (isTableKind(body.kind)) {
        if (summary.owner != 0) context.error(body, ownerText(context, summary.owner) + ", not 0");
        return;
    }
    if (!summary.hasOwner) {
        ++context.ownersAbsent;
        return;
    }
    const ObjectBody& place = context.store.at(body.owner);
    if (summary.owner == place.handle) return;
    // Some writers name the block of the entity that an attribute or vertex belongs to.
    const bool namesBlock = isSubEntityKind(body.kind) && place.owner != kNoIndex &&
                            summary.owner == context.store.at(place.owner).handle;
    context.add(namesBlock ? Severity::Note : Severity::Error, body,
                ownerText(context, summary.owner) + ", not " + nameOf(place));
}

void checkSequence(CheckContext& context, const ObjectSummary& summary) {
    const ObjectBody& body = *summary.body;
    const bool stray =
        body.kind == Kind::Entity &&
        (summary.type == "ATTRIB" || summary.type == "VERTEX" || summary.type == "SEQEND");
    if (stray) context.error(body, "belongs to no entity");
    if (body.kind != Kind::BlockReference) return;
    const bool hasAttributes = context.store.firstLive(body.self) != kNoIndex;
    const bool hasEnd = context.isLive(body.sequenceEnd);
    if (summary.attributesFollow && !hasAttributes) {
        context.error(body, "announces attributes (66) and has none");
    }
    if (!summary.attributesFollow && hasAttributes) {
        context.error(body, "has attributes and does not announce them (66)");
    }
    if (hasAttributes && !hasEnd) context.error(body, "its attributes end without SEQEND");
}

}  // namespace host
