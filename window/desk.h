// Where work for the host's thread waits. Everything of the host runs on one thread only: the
// others put down what they want and wait for the outcome.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace window {

/// An outcome that may come later; when nobody is left to give it, the one who waits learns that.
using Reply = std::shared_ptr<std::promise<std::string>>;
/// Runs on the host's thread and gives the reply its value, or keeps it until it can.
using Work = std::function<void(const Reply& reply)>;

class Desk {
  public:
    /// So much may wait at a time.
    static constexpr std::size_t kMostWaiting = 16;

    /// Of any thread: waits for the outcome. Nothing when too much waits already or nobody will do
    /// it any more. What the work throws before it has a value is thrown here.
    std::optional<std::string> ask(Work work);
    /// Of the host's thread: does the next work, waiting for it a moment. False when none came.
    bool serveOne();
    /// Of the host's thread: no further work is taken, and what waits is given up.
    void close();

  private:
    struct Item {
        Work work;
        Reply reply;
    };
    std::mutex m_mutex;
    std::condition_variable m_filled;
    std::deque<Item> m_items;
    bool m_closed = false;
};

}  // namespace window
