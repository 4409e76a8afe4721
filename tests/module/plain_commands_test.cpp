// Dissolving and repairing in drawings of whole and broken groups, some of it on a locked layer,
// compared with the same work in its plain form: a walk for each member, a walk from each marker.
#include "common/seeds.h"
#include "damaged_scene.h"
#include "group_forming.h"
#include "group_walk.h"
#include "handle_text.h"
#include "membership.h"
#include "number_text.h"

namespace {

using tests::DamagedScene;
using Ids = std::vector<AcDbObjectId>;

const std::wstring kEnd = L"VELMO_GE";

void plainDelete(const Ids& selected) {
    int ungrouped = 0;
    for (const AcDbObjectId& id : selected) {
        AcDbObjectIdArray group;
        if (id.isErased()) continue;
        if (!isGroupedEntity(id)) {
            ungrouped += ungroupEntity(id);
        } else if (verifyGroup(group, id)) {
            for (int i = 0; i < group.length(); ++i)
                ungrouped += ungroupEntity(group[i]);
        }
    }
    acutPrintf(L"\n%d Entities Ungrouped.", ungrouped);
}

std::wstring textOf(const AcDbObjectId& marker, int attribute) {
    Opened<AcDbBlockReference> reference;
    acdbOpenObject(reference.receive(), marker, AcDb::kForRead);
    const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
    while (attribute-- > 0)
        attributes->step();
    Opened<AcDbAttribute> opened;
    reference->openAttribute(opened.receive(), attributes->objectId(), AcDb::kForRead);
    return opened->textStringConst();
}

void plainUpdate(const AcDbObjectId& begin, int& updated, int& deleted) {
    std::wstring handle = nextEntityHandle(begin);
    if (handle.empty()) return;
    AcDbObjectId end = idFromHandleText(handle);
    int between = 0;
    for (; readMarkerText(end, kMarkerTag) != kEnd; ++between) {
        handle = nextEntityHandle(end);
        end = idFromHandleText(handle);
        if (!end.isValid()) return;
    }
    std::wstring count = textOf(begin, 1);
    const int expected = digitsOf(count);
    if (between > expected || (between == 0 && expected != 0)) {
        eraseObject(begin);
        eraseObject(end);
        ++deleted;
        return;
    }
    if (between < expected) count = std::to_wstring(between);
    const auto update = [&count](const AcDbObjectId& marker, const std::wstring& other) {
        Opened<AcDbBlockReference> reference;
        acdbOpenObject(reference.receive(), marker, AcDb::kForRead);
        const AcGePoint3d position = reference->position();
        reference.close();
        updateMarker(marker, position, other, count);
    };
    update(begin, handle);
    update(end, handleText(begin));
    ++updated;
}

void plainRepair(DamagedScene& scene) {
    const auto markers = [&](bool beginsOnly) {
        Ids ids;
        for (const AcDbObjectId& id : scene.entities()) {
            const std::wstring tag = readMarkerText(id, kMarkerTag);
            if (tag == L"VELMO_GB" || (!beginsOnly && tag == kEnd)) ids.push_back(id);
        }
        if (host::switches().newestFirst) std::reverse(ids.begin(), ids.end());
        return ids;
    };
    int updated = 0, deleted = 0;
    for (const AcDbObjectId& begin : markers(true))
        plainUpdate(begin, updated, deleted);
    if (updated > 0) acutPrintf(L"\n%d Groups Updated. ", updated);
    if (deleted > 0) acutPrintf(L"\n%d Groups Deleted. ", deleted);
    for (const AcDbObjectId& marker : markers(false))
        if (idFromHandleText(textOf(marker, 0)).isNull()) eraseObject(marker);
    for (const AcDbObjectId& begin : markers(true)) {
        const std::wstring end = textOf(begin, 0);
        if (end != nextEntityHandle(begin) || idFromHandleText(end).isNull()) continue;
        eraseObject(idFromHandleText(end));
        eraseObject(begin);
    }
}

/// Drawing order and what was printed, of the work `plain` or by command.
std::string outcome(unsigned seed, bool repair, bool plain) {
    host::Switches settings;
    settings.newestFirst = (seed & 1) != 0;
    DamagedScene scene(seed, settings);
    if ((seed & 2) != 0) scene.lockSome();
    const Ids all = scene.entities();
    Ids selected;
    std::wstring script = L"VelmoGROUPDELETE ";
    for (std::size_t i = 0; i < all.size() && !repair; ++i) {
        if (scene.roll(4) == 0) continue;
        selected.push_back(all[i]);
        script += L"#" + std::to_wstring(i + 1) + L" ";
    }
    host::clearEffects();
    if (plain) {
        repair ? plainRepair(scene) : plainDelete(selected);
    } else {
        scene.after(repair ? L"REGEN\n" : script + L"\n\n");
    }
    std::string printed = tests::Scene::printed();
    const std::string prompt = repair ? "\nRegenerating model." : "Select objects: ";
    const std::size_t before = repair ? 0 : printed.rfind(prompt);
    if (before != printed.npos && !plain)
        printed = repair ? printed.substr(0, printed.find(prompt))
                         : printed.substr(before + prompt.size());
    return scene.order() + " |" + printed;
}

TEST(PlainCommands, DissolveAndRepairInTheSameWay) {
    tests::tryEachSeed(150, [](unsigned seed) {
        for (const bool repair : {false, true})
            EXPECT_EQ(outcome(seed, repair, false), outcome(seed, repair, true));
    });
}

}  // namespace
