// MOVE, COPY and MIRROR.
#include "host/clone/deep_clone.h"
#include "host/commands/commands.h"
#include "host/commands/entity_selection.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/store/store.h"

namespace host {
namespace {

constexpr const wchar_t* kSecondPoint =
    L"\nSpecify second point or <use first point as displacement>: ";

Vec toVec(const AcGePoint3d& point) { return {point.x, point.y, point.z}; }

std::vector<Index> indexesOf(const std::vector<ObjectBody*>& entities) {
    std::vector<Index> indexes;
    for (const ObjectBody* entity : entities)
        indexes.push_back(entity->self);
    return indexes;
}

/// The base point, or right away a displacement: then `isDisplacement`.
PromptStatus promptBase(AcGePoint3d& base, bool& isDisplacement) {
    wchar_t word = 0;
    const PromptStatus status = promptPointOrWord(
        L"\nSpecify base point or [Displacement] <Displacement>: ", nullptr, L"D", base, word);
    isDisplacement = status == PromptStatus::None || word != 0;
    if (status == PromptStatus::Cancel || !isDisplacement) return status;
    const AcGePoint3d origin;
    base = origin;
    const PromptStatus given =
        promptPoint(L"\nSpecify displacement <0.0,0.0,0.0>: ", &origin, base);
    return given == PromptStatus::Cancel ? given : PromptStatus::Ok;
}

CommandStatus moveEntities(Store& store, const std::vector<ObjectBody*>& entities) {
    AcGePoint3d base, second;
    bool isDisplacement = false;
    if (promptBase(base, isDisplacement) != PromptStatus::Ok) return CommandStatus::Cancelled;
    Vec by = toVec(base);
    if (!isDisplacement) {
        const PromptStatus status = promptPoint(kSecondPoint, &base, second);
        if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
        if (status == PromptStatus::Ok) by = toVec(second) - by;
    }
    EntityTransform move(displacement(by), "moved");
    if (!canTransform(move, entities)) return CommandStatus::Failed;
    move.apply(store, indexesOf(entities));
    return CommandStatus::Done;
}

/// Clones entities behind the others of their space, in their order, and transforms the clones.
void cloneTransformed(Store& store, const std::vector<ObjectBody*>& entities,
                      EntityTransform& transform) {
    CloneMap map;
    for (ObjectBody* entity : entities)
        copyWithOwned(store, {entity}, store.at(entity->owner), map);
    translateReferences(store, map);
    std::vector<Index> clones;
    for (const ObjectBody* entity : entities)
        clones.push_back(map.cloneOf(*entity));
    transform.apply(store, clones);
}

bool copyBy(Store& store, const std::vector<ObjectBody*>& entities, const Vec& by) {
    EntityTransform copying(displacement(by), "copied");
    if (!canTransform(copying, entities)) return false;
    cloneTransformed(store, entities, copying);
    return true;
}

/// One copy for each further point until Enter. A refusal is told at each; the points that a script
/// has for the command are read in any case.
CommandStatus copyToPoints(Store& store, const std::vector<ObjectBody*>& entities,
                           const AcGePoint3d& base) {
    CommandStatus outcome = CommandStatus::Done;
    for (int copies = 0;; ++copies) {
        AcGePoint3d to;
        wchar_t leaves = 0;
        const PromptStatus status =
            copies == 0 ? promptPoint(kSecondPoint, &base, to)
                        : promptPointOrWord(L"\nSpecify second point or [Exit] <Exit>: ", &base,
                                            L"E", to, leaves);
        if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
        const bool byBase = status == PromptStatus::None && copies == 0;
        if (leaves != 0 || (status == PromptStatus::None && !byBase)) return outcome;
        if (!copyBy(store, entities, byBase ? toVec(base) : toVec(to) - toVec(base)))
            outcome = CommandStatus::Failed;
        if (byBase) return outcome;
    }
}

CommandStatus copyEntities(Store& store, const std::vector<ObjectBody*>& entities) {
    AcGePoint3d base;
    bool isDisplacement = false;
    if (promptBase(base, isDisplacement) != PromptStatus::Ok) return CommandStatus::Cancelled;
    if (!isDisplacement) return copyToPoints(store, entities, base);
    return copyBy(store, entities, toVec(base)) ? CommandStatus::Done : CommandStatus::Failed;
}

/// The two points of the mirror line; asked again while they are the same.
PromptStatus promptMirrorLine(AcGePoint3d& first, AcGePoint3d& second) {
    PromptStatus status = promptPoint(L"\nSpecify first point of mirror line: ", nullptr, first);
    while (status == PromptStatus::Ok) {
        status = promptPoint(L"\nSpecify second point of mirror line: ", &first, second);
        if (status != PromptStatus::Ok || isMirrorLine(toVec(first), toVec(second))) break;
        if (!wrongAnswer(L"The points of a mirror line must differ in X or Y"))
            return PromptStatus::Cancel;
    }
    return status;
}

CommandStatus mirrorEntities(Store& store, const std::vector<ObjectBody*>& selected) {
    AcGePoint3d first, second;
    if (promptMirrorLine(first, second) != PromptStatus::Ok) return CommandStatus::Cancelled;
    const auto answer = promptWord(L"\nErase source objects? [Yes/No] <N>: ", {L"Yes", L"No"}, 1);
    if (!answer) return CommandStatus::Cancelled;
    const bool erases = *answer == 0;
    std::vector<ObjectBody*> entities;
    for (ObjectBody* entity : selected)
        if (!erases || !store.onLockedLayer(*entity)) entities.push_back(entity);
    if (entities.size() < selected.size())
        printLine(std::to_wstring(selected.size() - entities.size()) +
                  L" on a locked layer, left as they are.");
    EntityTransform mirror(mirroring(toVec(first), toVec(second)), "mirrored");
    if (!canTransform(mirror, entities)) return CommandStatus::Failed;
    if (erases)
        mirror.apply(store, indexesOf(entities));
    else
        cloneTransformed(store, entities, mirror);
    return CommandStatus::Done;
}

}  // namespace

const CommandTable kTransformCommands = {
    {L"MOVE", ACRX_CMD_USEPICKSET, onSelection<Locked::LeftOut, moveEntities>,
     L"moves entities: base point, second point"},
    {L"COPY", ACRX_CMD_USEPICKSET, onSelection<Locked::Taken, copyEntities>,
     L"copies entities: base point, a second point for each copy, Enter ends; Esc keeps them"},
    {L"MIRROR", ACRX_CMD_USEPICKSET, onSelection<Locked::Taken, mirrorEntities>,
     L"mirrors entities, texts and patterns too: two points, erase the sources or not"},
};

}  // namespace host
