// Decides the group prefix of the working drawing.
#include "group_naming.h"

#include "host_guards.h"
#include "host_services.h"
#include "platform.h"

namespace {

/// A drawing without detailing blocks keeps the older prefix once it has that group layer.
bool hasOlderGroupLayer(AcDbDatabase* database) {
    Opened<AcDbLayerTable> layers;
    if (database->getSymbolTable(layers.receive(), AcDb::kForRead) != Acad::eOk) return false;
    return layers->has((std::wstring(GroupPrefix::kOlder) + GroupSuffix::kLayer).c_str());
}

}  // namespace

std::wstring groupPrefix() {
    AcDbDatabase* database = workingDatabase();
    Opened<AcDbBlockTable> blocks;
    if (database == nullptr ||
        database->getSymbolTable(blocks.receive(), AcDb::kForRead) != Acad::eOk) {
        return GroupPrefix::kOlder;
    }
    const bool olderDetailing = blocks->has(L"KESTEDET") || blocks->has(L"KESTMDET");
    if (blocks->has(L"VELMOEDET") || blocks->has(L"VELMOMDET")) return GroupPrefix::kNewer;
    if (olderDetailing || hasOlderGroupLayer(database)) return GroupPrefix::kOlder;
    return GroupPrefix::kNewer;
}
