// Creates the marker blocks on demand.
#include "marker_block.h"

#include "diagnostics.h"
#include "group_layer.h"
#include "group_naming.h"
#include "host_guards.h"

namespace {

constexpr wchar_t DIAG_SOURCE[] = L"MarkerBlock";
constexpr Adesk::UInt16 kGroupLayerColor = 7;
constexpr double kAttributeHeight = 1.0;
constexpr Adesk::UInt16 kFieldLength = 25;

enum class Place { kFirst, kBelowFirst };

/// Tag, prompt and default text of a definition are all the block's name.
void setProperties(AcDbAttributeDefinition& definition, const std::wstring& blockName,
                   const std::wstring& layerName) {
    definition.setTag(blockName.c_str());
    definition.setPrompt(blockName.c_str());
    definition.setTextString(blockName.c_str());
    definition.setHeight(kAttributeHeight);
    definition.setRotation(0.0);
    definition.setHorizontalMode(AcDb::kTextLeft);
    definition.setVerticalMode(AcDb::kTextBase);
    DIAG_ASSERT(definition.setLayer(layerName.c_str()) == Acad::eOk,
                L"pAttDef->setLayer(sLayerName) == Acad::eOk");
    definition.setInvisible(true);
    definition.setVerifiable(false);
    definition.setPreset(false);
    definition.setConstant(false);
    definition.setFieldLength(kFieldLength);
}

void appendDefinition(AcDbBlockTableRecord& block, const std::wstring& blockName,
                      const std::wstring& layerName, Place place) {
    NewObject<AcDbAttributeDefinition> definition(new AcDbAttributeDefinition);
    if (place == Place::kBelowFirst) {
        // By the height that a new definition reports, not by the one that it is given below.
        definition->setPosition(AcGePoint3d(0.0, -definition->height(), 0.0));
    }
    setProperties(*definition.get(), blockName, layerName);
    DIAG_ASSERT(block.appendAcDbEntity(definition.get()) == Acad::eOk,
                L"pBlockRecord->appendAcDbEntity(pAttDef) == Acad::eOk");
}

bool blockMissing(const std::wstring& blockName) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    Opened<AcDbBlockTable> blocks;
    const bool opened = database != nullptr &&
                        database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"pDatabase->getSymbolTable(pBlockTable, AcDb::kForRead) == Acad::eOk");
    return opened && !blocks->has(blockName.c_str());
}

/// Id of the linetype of the group layer; false when the linetype table cannot be opened.
bool groupLinetype(AcDbDatabase* database, AcDbObjectId& linetype) {
    Opened<AcDbLinetypeTable> linetypes;
    if (database == nullptr ||
        database->getSymbolTable(linetypes.receive(), AcDb::kForRead) != Acad::eOk) {
        return false;
    }
    DIAG_ASSERT(linetypes->getAt(L"CONTINUOUS", linetype) == Acad::eOk,
                L"pLinetypeTable->getAt(L\"CONTINUOUS\", linetypeId) == Acad::eOk");
    return true;
}

}  // namespace

void createMarkerBlock(AcDbObjectId& blockId, const std::wstring& blockName) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId linetype;
    if (!groupLinetype(database, linetype)) {
        // The wording names the layer table; users know the message in this form.
        acutPrintf(L"\nUnable to open the layer table Aborting...");
        return;
    }
    // Decided before the block table is opened for write: nobody can read it then.
    const std::wstring prefix = groupPrefix();
    const std::wstring layerName = prefix + GroupSuffix::kLayer;
    makeLayer(layerName, kGroupLayerColor, linetype, 0);

    NewObject<AcDbBlockTableRecord> block(new AcDbBlockTableRecord);
    DIAG_ASSERT(block->setName(blockName.c_str()) == Acad::eOk,
                L"pBlockRecord->setName(sBlockName) == Acad::eOk");
    block->setOrigin(AcGePoint3d::kOrigin);
    Opened<AcDbBlockTable> blocks;
    const bool opened = database->getSymbolTable(blocks.receive(), AcDb::kForWrite) == Acad::eOk;
    DIAG_ASSERT(opened, L"pDatabase->getSymbolTable(pBlockTable, AcDb::kForWrite) == Acad::eOk");
    if (!opened) return;
    const bool added = blocks->add(blockId, block.get()) == Acad::eOk;
    DIAG_ASSERT(added, L"pBlockTable->add(blockId, pBlockRecord) == Acad::eOk");
    if (!added) return;
    appendDefinition(*block.get(), blockName, layerName, Place::kFirst);
    if (blockName == prefix + GroupSuffix::kBeginMarker) {
        appendDefinition(*block.get(), blockName, layerName, Place::kBelowFirst);
    }
}

void ensureMarkerBlocks() {
    for (const wchar_t* suffix : {GroupSuffix::kBeginMarker, GroupSuffix::kEndMarker}) {
        const std::wstring blockName = groupPrefix() + suffix;
        AcDbObjectId blockId;
        if (blockMissing(blockName)) createMarkerBlock(blockId, blockName);
    }
}
