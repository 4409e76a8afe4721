// Decides the group prefix of the working drawing.
#include "group_naming.h"

#include "host_guards.h"
#include "host_services.h"
#include "platform.h"

namespace {

constexpr const wchar_t* kOlderPrefix = L"KEST";
constexpr const wchar_t* kPrefix = L"VELMO";

/// A drawing without detailing blocks keeps the older prefix once it has that group layer.
bool hasOlderGroupLayer(AcDbDatabase* database) {
    Opened<AcDbLayerTable> layers;
    if (database->getSymbolTable(layers.receive(), AcDb::kForRead) != Acad::eOk) return false;
    return layers->has((std::wstring(kOlderPrefix) + GroupSuffix::kLayer).c_str());
}

}  // namespace

std::wstring groupPrefix() {
    AcDbDatabase* database = workingDatabase();
    Opened<AcDbBlockTable> blocks;
    if (database == nullptr ||
        database->getSymbolTable(blocks.receive(), AcDb::kForRead) != Acad::eOk) {
        return kOlderPrefix;
    }
    const bool olderDetailing = blocks->has(L"KESTEDET") || blocks->has(L"KESTMDET");
    if (blocks->has(L"VELMOEDET") || blocks->has(L"VELMOMDET")) return kPrefix;
    if (olderDetailing || hasOlderGroupLayer(database)) return kOlderPrefix;
    return kPrefix;
}
