// Hands work over to the host's thread.
#include "window/desk.h"

#include <chrono>
#include <exception>
#include <utility>

namespace window {

std::optional<std::string> Desk::ask(Work work) {
    auto reply = std::make_shared<std::promise<std::string>>();
    std::future<std::string> outcome = reply->get_future();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_closed || m_items.size() >= kMostWaiting) return std::nullopt;
        m_items.push_back({std::move(work), std::move(reply)});
    }
    m_filled.notify_one();
    try {
        return outcome.get();
    } catch (const std::future_error&) {  // given up
        return std::nullopt;
    }
}

bool Desk::serveOne() {
    constexpr auto kMoment = std::chrono::milliseconds(200);  // until Ctrl+C is looked for again
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_filled.wait_for(lock, kMoment, [&] { return !m_items.empty(); })) return false;
    Item item = std::move(m_items.front());
    m_items.pop_front();
    lock.unlock();
    try {
        item.work(item.reply);
    } catch (...) {
        item.reply->set_exception(std::current_exception());
    }
    return true;
}

void Desk::close() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_closed = true;
    m_items.clear();
}

}  // namespace window
