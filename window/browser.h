// Opening the person's browser.
#pragma once

#include <string>

namespace window {

/// A page of this user alone that leads to an address: what a program is started with everybody on
/// the machine can see, and the address holds the key. It is gone when this is destroyed.
class Signpost {
  public:
    explicit Signpost(const std::string& address);
    ~Signpost();
    Signpost(const Signpost&) = delete;
    Signpost& operator=(const Signpost&) = delete;

    /// Has the desktop open it in the browser. False when that cannot be started.
    bool open() const;

  private:
    std::string m_path;  ///< empty when it could not be written
};

}  // namespace window
