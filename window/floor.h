// Which of the pages that know the address may work on the session: one at a time.
#pragma once

#include <chrono>
#include <mutex>
#include <string>

namespace window {

/// Of any thread. A page that was not heard of for some seconds has lost its place to the next one
/// that asks; a page that says that it closes gives it up.
class Floor {
  public:
    /// True when the page works on the session from now on. It may take the place of the page that
    /// it `was` before it was loaded again; `takesOver` that of any.
    bool claim(const std::string& page, const std::string& was, bool takesOver);
    /// True when it does; it has been heard of.
    bool holds(const std::string& page);
    void leave(const std::string& page);
    /// True when the page was closed some seconds ago and none came since.
    bool deserted() const;

  private:
    using Clock = std::chrono::steady_clock;
    mutable std::mutex m_mutex;
    std::string m_page;         ///< empty: nobody
    Clock::time_point m_heard;  ///< of it, or when it left
    bool m_left = false;
};

}  // namespace window
