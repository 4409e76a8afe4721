// Drives the host and the module for tests.
#include "common/drafting.h"

#include "common/checks.h"
#include "common/drawing_order.h"
#include "common/scratch.h"
#include "host/control/effects.h"
#include "host/editor/state/menus.h"
#include "host/objectarx/database.h"

namespace tests {

Drafting::Drafting(const std::string& drawing, const std::wstring& menuGroup, Damage damage)
    : m_session(std::make_unique<host::Session>()), m_damage(damage) {
    if (!menuGroup.empty()) host::loadMenuGroup(menuGroup);
    const host::Outcome opened =
        drawing.empty() ? m_session->newDrawing() : m_session->openDrawing(drawing);
    EXPECT_TRUE(opened) << opened.error;
    const host::Outcome loaded = m_session->modules.load(MODULE_FILE);
    EXPECT_TRUE(loaded) << loaded.error;
}

Drafting::~Drafting() {
    for (std::size_t i = 0; m_damage == Damage::None && i < m_session->documents.count(); ++i) {
        EXPECT_EQ(errorsIn(m_session->documents.at(i)->database()->store()), "");
    }
    m_session.reset();
    EXPECT_EQ(takeFaults(), std::vector<std::string>());
}

std::wstring Drafting::run(const std::wstring& script) {
    host::clearEffects();
    m_session->runScript(script);
    return host::effectText(host::EffectKind::CommandLine);
}

host::Store& Drafting::store() const { return m_session->database()->store(); }

std::string Drafting::order() const { return drawingOrder(store(), store().modelSpace()); }

void Drafting::saveAndReopen() {
    const ScratchFolder folder;
    const std::string file = folder.file("saved.dxf");
    const host::Outcome saved = m_session->saveDrawing(file);
    EXPECT_TRUE(saved) << saved.error;
    EXPECT_TRUE(m_session->closeDrawing());
    const host::Outcome opened = m_session->openDrawing(file);
    EXPECT_TRUE(opened) << opened.error;
}

}  // namespace tests
