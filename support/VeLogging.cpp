// The logging object: creation, use, destruction.
#include "VeLogging.h"

#include <new>

#include "diagnostics.h"
#include "platform.h"

CVelmoLogging* G_pLoggingObject = NULL;

namespace {

const CheckSource DIAG_SOURCE = L"VeLogging";

/// The lines that the checks of this source report, fixed so that reports of different releases
/// stay comparable.
const CheckSite kCreateCheck = {DIAG_SOURCE, 21};
const CheckSite kDestructorCheck = {DIAG_SOURCE, 62};
const CheckSite kUseCheck = {DIAG_SOURCE, 69};

}  // namespace

CLogSession::CLogSession(const std::wstring& sApplicationName, const std::wstring& sVersion)
    : m_sApplicationName(sApplicationName), m_sVersion(sVersion) {}

void CLogSession::log(const std::wstring&) {}

CVelmoLogging::CVelmoLogging(const std::wstring& sApplicationName, const std::wstring& sVersion)
    : m_pLogSession(new (std::nothrow) CLogSession(sApplicationName, sVersion)) {}

CVelmoLogging::~CVelmoLogging() {
    DIAG_ASSERT_AT(kDestructorCheck, m_pLogSession != NULL, L"m_pLogSession != NULL");
}

void CVelmoLogging::log(const std::wstring& sText) {
    DIAG_ASSERT_AT(kUseCheck, m_pLogSession != NULL, L"m_pLogSession != NULL");
    if (m_pLogSession != NULL) m_pLogSession->log(sText);
}

void createLogging(const std::wstring& sApplicationName, const std::wstring& sVersion) {
    DIAG_ASSERT_AT(kCreateCheck, G_pLoggingObject == NULL, L"G_pLoggingObject == NULL");
    G_pLoggingObject = new (std::nothrow) CVelmoLogging(sApplicationName, sVersion);
}

void logCommandUse(const std::wstring& sText) {
    if (G_pLoggingObject != NULL) G_pLoggingObject->log(sText);
}

void destroyLogging() {
    delete G_pLoggingObject;
    G_pLoggingObject = NULL;
}
