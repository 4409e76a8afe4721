// The page's files and requests over HTTP, for this machine alone.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "json/json.h"
#include "window/desk.h"
#include "window/floor.h"

namespace window {

class Server {
  public:
    /// `answer` runs on the host's thread.
    using Answer = std::function<void(const json::Request& request, const Reply& reply)>;

    Server(Desk& desk, Floor& floor, Answer answer);
    /// Ends when what is being answered has been; close the desk before.
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Begins to listen on a free port of 127.0.0.1. False when there is none.
    bool start();
    /// Where the page is, with the key.
    std::string address() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace window
