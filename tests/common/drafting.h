// A host session with the module loaded, as a test drives it.
#pragma once

#include <memory>
#include <string>

#include "common/checks.h"
#include "host/application/session.h"
#include "host/store/store.h"

namespace tests {

/// Starts with one drawing (empty, or loaded) and the module. At its end every fault of the module
/// that the accounting found, and every damage of a drawing still open, fails the test.
class Drafting {
  public:
    /// Whether the drawing is sound, or has defects of its own that the test does not count.
    enum class Damage { None, Known };

    explicit Drafting(const std::string& drawing = "", const std::wstring& menuGroup = L"",
                      Damage damage = Damage::None);
    ~Drafting();

    /// Runs commands and gives what they printed, echoes of the typed answers left out.
    std::wstring run(const std::wstring& script);
    /// Store of the current drawing.
    host::Store& store() const;
    host::Session& session() { return *m_session; }
    /// drawingOrder of the current drawing's model space.
    std::string order() const;
    /// Saves the current drawing under a temporary name and opens it again as a new document.
    void saveAndReopen();

  private:
    std::unique_ptr<host::Session> m_session;
    Damage m_damage;
};

/// Name of the module that the tests load.
inline constexpr const char* kModule = "VelmoGroup.arx";

}  // namespace tests
