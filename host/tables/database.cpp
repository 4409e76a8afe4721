// AcDbDatabase: tables, handles, the current layer and tab; the host application's services.
#include "host/objectarx/database.h"
#include "host/store/symbol_records.h"

#include "host/control/faults.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"

using namespace host;

namespace {

template <typename Table>
Acad::ErrorStatus openTable(Table*& table, const Store& store, const char* name,
                            AcDb::OpenMode mode) {
    table = nullptr;
    if (callFails("AcDbDatabase::getSymbolTable")) return Acad::eWasOpenForWrite;
    const Index index = store.table(name);
    return index != kNoIndex ? openAs(table, store.at(index), mode) : Acad::eKeyNotFound;
}

}  // namespace

AcDbDatabase::AcDbDatabase(std::unique_ptr<Store> store) : m_store(std::move(store)) {
    m_store->database = this;
}

AcDbDatabase::~AcDbDatabase() {
    abandonOpenings(*m_store);
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    if (services->workingDatabase() == this) services->setWorkingDatabase(nullptr);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
    return openTable(table, *m_store, "BLOCK_RECORD", mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return openTable(table, *m_store, "LAYER", mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) {
    return openTable(table, *m_store, "LTYPE", mode);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                                const AcDbHandle& handle, Adesk::UInt32) {
    id.setNull();
    if (callFails("AcDbDatabase::getAcDbObjectId")) return Acad::eUnknownHandle;
    if (createIfNotFound) return Acad::eNotApplicable;
    const ObjectBody* const body = m_store->byHandle(handle.value());
    if (body == nullptr || body->undone) return Acad::eUnknownHandle;
    id = m_store->idOf(*body);
    return Acad::eOk;
}

bool AcDbDatabase::tilemode() const { return m_store->modelTabCurrent(); }

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
    if (callFails("AcDbDatabase::setClayer")) return Acad::eInvalidInput;
    if (layer.isNull()) return Acad::eNullObjectId;
    const ObjectBody* const body = bodyOfId(layer, "AcDbDatabase::setClayer");
    if (body == nullptr) return Acad::eInvalidInput;
    if (body->kind != Kind::LayerRecord) return Acad::eNotThatKindOfClass;
    if (body->store != m_store.get()) return Acad::eWrongDatabase;
    if (body->erased) return Acad::eWasErased;
    return setCurrentLayer(*m_store, *body) ? Acad::eOk : Acad::eInvalidInput;
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}
