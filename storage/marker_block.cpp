// Creates the marker blocks on demand.
#include "marker_block.h"

#include "diagnostics.h"
#include "group_layer.h"
#include "group_naming.h"
#include "host_guards.h"
#include "host_services.h"

namespace {

const CheckSource DIAG_SOURCE = L"MarkerBlock";
const Adesk::UInt16 kGroupLayerColor = 7;
const double kAttributeHeight = 1.0;

enum Place { kFirst, kBelowFirst };

/// Tag, prompt and default text of a definition are all the block's name.
void setProperties(AcDbAttributeDefinition& definition, const std::wstring& blockName,
                   const std::wstring& layerName) {
    DIAG_CHECK(definition.setTag(blockName.c_str()) == Acad::eOk);
    DIAG_CHECK(definition.setPrompt(blockName.c_str()) == Acad::eOk);
    DIAG_CHECK(definition.setTextString(blockName.c_str()) == Acad::eOk);
    DIAG_CHECK(definition.setHeight(kAttributeHeight) == Acad::eOk);
    DIAG_CHECK(definition.setRotation(0.0) == Acad::eOk);
    DIAG_CHECK(definition.setHorizontalMode(AcDb::kTextLeft) == Acad::eOk);
    DIAG_CHECK(definition.setVerticalMode(AcDb::kTextBase) == Acad::eOk);
    DIAG_CHECK(definition.setLayer(layerName.c_str()) == Acad::eOk);
    DIAG_CHECK(definition.setInvisible(true) == Acad::eOk);
    DIAG_CHECK(definition.setVerifiable(false) == Acad::eOk);
    DIAG_CHECK(definition.setPreset(false) == Acad::eOk);
    DIAG_CHECK(definition.setConstant(false) == Acad::eOk);
    DIAG_CHECK(definition.setFieldLength(kMarkerFieldLength) == Acad::eOk);
}

void appendDefinition(AcDbBlockTableRecord& block, const std::wstring& blockName,
                      const std::wstring& layerName, Place place) {
    NewObject<AcDbAttributeDefinition> definition(new AcDbAttributeDefinition);
    // Below by the height that a new definition reports, not by the one that it is given.
    const double y = place == kBelowFirst ? -definition->height() : 0.0;
    DIAG_CHECK(definition->setPosition(AcGePoint3d(0.0, y, 0.0)) == Acad::eOk);
    setProperties(*definition.get(), blockName, layerName);
    DIAG_CHECK(block.appendAcDbEntity(definition.get()) == Acad::eOk);
}

bool blockMissing(const std::wstring& blockName) {
    AcDbDatabase* database = workingDatabase();
    if (database == nullptr) return false;
    Opened<AcDbBlockTable> blocks;
    return DIAG_CHECK(database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk) &&
           !blocks->has(blockName.c_str());
}

/// Id of the linetype of the group layer; false when the linetype table cannot be opened.
bool groupLinetype(AcDbDatabase* database, AcDbObjectId& linetype) {
    Opened<AcDbLinetypeTable> linetypes;
    if (database == nullptr ||
        database->getSymbolTable(linetypes.receive(), AcDb::kForRead) != Acad::eOk) {
        return false;
    }
    DIAG_CHECK(linetypes->getAt(L"CONTINUOUS", linetype) == Acad::eOk);
    return true;
}

void ensureMarkerBlock(const wchar_t* suffix) {
    const std::wstring blockName = groupPrefix() + suffix;
    AcDbObjectId blockId;
    if (blockMissing(blockName)) createMarkerBlock(blockId, blockName);
}

}  // namespace

void createMarkerBlock(AcDbObjectId& blockId, const std::wstring& blockName) {
    AcDbDatabase* database = workingDatabase();
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
    DIAG_CHECK(block->setName(blockName.c_str()) == Acad::eOk);
    DIAG_CHECK(block->setOrigin(AcGePoint3d::kOrigin) == Acad::eOk);
    Opened<AcDbBlockTable> blocks;
    if (!DIAG_CHECK(database->getSymbolTable(blocks.receive(), AcDb::kForWrite) == Acad::eOk) ||
        !DIAG_CHECK(blocks->add(blockId, block.get()) == Acad::eOk)) {
        return;
    }
    appendDefinition(*block.get(), blockName, layerName, kFirst);
    if (blockName == prefix + GroupSuffix::kBeginMarker) {
        appendDefinition(*block.get(), blockName, layerName, kBelowFirst);
    }
}

void ensureMarkerBlocks() {
    ensureMarkerBlock(GroupSuffix::kBeginMarker);
    ensureMarkerBlock(GroupSuffix::kEndMarker);
}
