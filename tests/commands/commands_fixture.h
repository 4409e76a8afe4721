// A session whose drawings the tests of the host's own commands compare as a whole.
#pragma once

#include <string>

#include "application/session_fixture.h"
#include "common/drawing_order.h"

namespace tests {

/// Everything live in a drawing: header, each object with its tags, and the order of the spaces,
/// walked both ways.
std::string stateOf(const host::Store& store);

class CommandsTest : public SessionTest {
  protected:
    /// Every drawing that is open at the end has to be sound.
    ~CommandsTest() override;

    host::CommandStatus run(const std::wstring& script) { return session->runScript(script); }
    host::Store& store() const { return session->database()->store(); }
    /// The occurrence-th entity of a type in model space.
    host::ObjectBody& entity(const std::string& type, int occurrence = 0) const {
        return entityOf(store(), type, occurrence);
    }
    /// Values of tags of an entity: "10 20 30" gives "1.0 2.0 3.0".
    static std::string values(const host::ObjectBody& body, std::initializer_list<int> codes);
    /// Adds an entity from "code value|code value" to model space.
    host::ObjectBody& add(const std::string& type, const std::string& tags);
    /// Adds a dictionary that owns what is entered hard or not.
    host::ObjectBody& addDictionary(const host::ObjectBody& owner, bool hard) const;
    host::ObjectBody& addExtensionDictionary(host::ObjectBody& entity, bool hard) const;
};

}  // namespace tests
