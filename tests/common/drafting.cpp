// Drives the host and the module for tests.
#include "common/drafting.h"

#include <filesystem>

#include "common/drawing_order.h"
#include "gtest/gtest.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/dxf/check/drawing_check.h"
#include "host/editor/state/menus.h"
#include "host/objectarx/database.h"
#include "host/text/text_codec.h"

namespace tests {

Drafting::Drafting(const std::string& drawing, const std::wstring& menuGroup, Damage damage)
    : m_session(std::make_unique<host::Session>()), m_damage(damage) {
    if (!menuGroup.empty()) host::loadMenuGroup(menuGroup);
    const host::Outcome opened =
        drawing.empty() ? m_session->newDrawing() : m_session->openDrawing(drawing);
    EXPECT_TRUE(opened) << opened.error;
    const host::Outcome loaded = m_session->modules.load(modulePath());
    EXPECT_TRUE(loaded) << loaded.error;
}

Drafting::~Drafting() {
    for (std::size_t i = 0; m_damage == Damage::None && i < m_session->documents.count(); ++i) {
        const host::Store& drawing = m_session->documents.at(i)->database()->store();
        for (const host::Finding& finding : host::checkDrawing(drawing)) {
            EXPECT_NE(finding.severity, host::Severity::Error) << finding.text;
        }
    }
    m_session.reset();
    for (const std::string& fault : host::moduleFaults())
        ADD_FAILURE() << fault;
}

std::wstring Drafting::run(const std::wstring& script) {
    host::clearEffects();
    m_session->runScript(script);
    return host::effectText(host::EffectKind::CommandLine);
}

host::Store& Drafting::store() const { return m_session->database()->store(); }

std::string Drafting::order() const { return drawingOrder(store(), store().modelSpace()); }

std::wstring Drafting::pick(const std::string& type, int occurrence, host::Index space) const {
    const std::string handle = handleOf(store(), type, occurrence, space);
    return L"(handent \"" + host::fromUtf8(handle) + L"\")";
}

void Drafting::saveAndReopen() {
    const std::string file = scratchFolder() + "/saved.dxf";
    const host::Outcome saved = m_session->saveDrawing(file);
    EXPECT_TRUE(saved) << saved.error;
    EXPECT_TRUE(m_session->closeDrawing());
    const host::Outcome opened = m_session->openDrawing(file);
    EXPECT_TRUE(opened) << opened.error;
}

std::string modulePath() { return MODULE_FILE; }

std::string scratchFolder() {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::filesystem::path folder =
        std::filesystem::path(SCRATCH_FOLDER) / test->test_suite_name() / test->name();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder.string();
}

}  // namespace tests
