// Opens drawings of lines and forms groups in them.
#include "drawings.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "group_forming.h"
#include "host/control/effects.h"
#include "host/objectarx/selection_sets.h"
#include "marker_block.h"

namespace bench {
namespace {

void mustSucceed(const host::Outcome& outcome) {
    mustHold(static_cast<bool>(outcome), outcome.error);
}

void writeLines(const std::string& path, long count) {
    std::ofstream file(path);
    file << "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1027\n  0\nENDSEC\n"
            "  0\nSECTION\n  2\nENTITIES\n";
    for (long x = 0; x < count; ++x) {
        file << "  0\nLINE\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n"
             << x << ".25\n 20\n0.0\n 30\n0.0\n 11\n"
             << x << ".25\n 21\n1.0\n 31\n0.0\n";
    }
    file << "  0\nENDSEC\n  0\nEOF\n";
}

}  // namespace

Drawings::Drawings() { host::setEffectRecording(false); }

Drawings::~Drawings() { host::setEffectRecording(true); }

void Drawings::openLines(long count) {
    const std::string name = "lines" + std::to_string(m_session.documents.count());
    const std::string path = SCRATCH_FOLDER "/" + name + ".dxf";
    writeLines(path, count);
    mustSucceed(m_session.openDrawing(path));
    std::remove(path.c_str());
}

void Drawings::activate(std::size_t index) { m_session.activate(*m_session.documents.at(index)); }

void Drawings::closeAll() {
    while (m_session.documents.count() > 0)
        mustSucceed(m_session.closeDrawing());
}

void mustHold(bool holds, const std::string& what) {
    if (!holds) throw std::runtime_error(what);
}

host::Store& store() { return acdbHostApplicationServices()->workingDatabase()->store(); }

std::vector<AcDbObjectId> entities() {
    const host::Store& drawing = store();
    std::vector<AcDbObjectId> ids;
    for (const host::ObjectBody& entity : drawing.children(drawing.modelSpace()))
        ids.push_back(drawing.idOf(entity));
    return ids;
}

void cloneAll(const std::vector<AcDbObjectId>& ids) {
    AcDbObjectIdArray sources;
    for (const AcDbObjectId& id : ids)
        sources.append(id);
    AcDbObjectId space = store().idOf(store().modelSpace());
    AcDbIdMapping clones;
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    mustHold(database->deepCloneObjects(sources, space, clones) == Acad::eOk, "entities clone");
}

void formGroups(long members) {
    ensureMarkerBlocks();
    ads_name group = {};
    long gathered = 0;
    for (const AcDbObjectId& id : entities()) {
        ads_name entity = {};
        acdbGetAdsName(entity, id);
        acedSSAdd(entity, gathered == 0 ? nullptr : group, group);
        if (++gathered < members) continue;
        formGroup(group, AcGePoint3d::kOrigin);
        gathered = 0;
    }
}

}  // namespace bench
