// One page at a time.
#include "window/floor.h"

namespace window {
namespace {

/// Pages are heard of every two seconds; one that is loaded again is back before this is over.
constexpr auto kPatience = std::chrono::seconds(5);

}  // namespace

bool Floor::claim(const std::string& page, const std::string& was, bool takesOver) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto now = Clock::now();
    const bool isFree =
        m_page.empty() || m_page == page || m_page == was || now - m_heard > kPatience;
    if (page.empty() || !(isFree || takesOver)) return false;
    m_page = page;
    m_heard = now;
    m_left = false;
    return true;
}

bool Floor::holds(const std::string& page) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (page.empty() || m_page != page) return false;
    m_heard = Clock::now();
    return true;
}

void Floor::leave(const std::string& page) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (page.empty() || m_page != page) return;
    m_page.clear();
    m_heard = Clock::now();
    m_left = true;
}

bool Floor::deserted() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_left && Clock::now() - m_heard > kPatience;
}

}  // namespace window
