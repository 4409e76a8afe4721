// Attaches the editor reactor and takes it off again.
#include "pick_reactor.h"

namespace {

/// The host's editor, or null when there is none.
AcEditor* editor() {
    AcRxObject* object = acrxSysRegistry()->at(L"AcEditor");
    if (object == nullptr || !object->isA()->isDerivedFrom(AcEditor::desc())) return nullptr;
    return static_cast<AcEditor*>(object);
}

}  // namespace

KESTpickGroupEnt::KESTpickGroupEnt(bool attach) {
    AcEditor* host = attach ? editor() : nullptr;
    if (host == nullptr) return;
    host->addReactor(this);
    m_bAttachedToEditor = true;
}

KESTpickGroupEnt::~KESTpickGroupEnt() {
    AcEditor* host = m_bAttachedToEditor ? editor() : nullptr;
    if (host != nullptr) host->removeReactor(this);
}
