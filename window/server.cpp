// HTTP by cpp-httplib. Its threads touch nothing of the host: they put work on the desk.
#include "window/server.h"

#include <httplib.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "window/admission.h"
#include "window/page.h"

namespace window {
namespace {

using httplib::Request;
using httplib::Response;

/// Named so, the library sends it as it is: packing it would take longer than all else.
constexpr const char* kJson = "application/json; charset=utf-8";
constexpr std::size_t kMostBytes = 64 * 1024;  ///< of a request
constexpr std::size_t kThreads = 6;
constexpr std::size_t kMostConnections = 32;  ///< that wait for a thread

/// Threads for connections. When too many wait, no further one is accepted.
class BoundedPool : public httplib::TaskQueue {
  public:
    BoundedPool() : m_threads(kThreads) {}
    void enqueue(std::function<void()> work) override {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_left.wait(lock, [&] { return m_waiting < kMostConnections; });
        ++m_waiting;
        lock.unlock();
        m_threads.enqueue([this, work = std::move(work)] {
            {
                const std::lock_guard<std::mutex> leaving(m_mutex);
                --m_waiting;
            }
            m_left.notify_one();
            work();
        });
    }
    void shutdown() override { m_threads.shutdown(); }

  private:
    httplib::ThreadPool m_threads;
    std::mutex m_mutex;
    std::condition_variable m_left;
    std::size_t m_waiting = 0;
};

void refuse(Response& response, int status, const std::string& why) {
    response.status = status;
    response.set_content(json::Object{{"error", why}}.text(), kJson);
}

const httplib::Headers kHeaders = {
    {"Content-Security-Policy",
     "default-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cache-Control", "no-store"},
};

}  // namespace

struct Server::Impl {
    Impl(Desk& atDesk, Floor& ofPages, Answer answers)
        : desk(atDesk), floor(ofPages), answer(std::move(answers)) {}

    httplib::Server::HandlerResponse admit(const Request& request, Response& response) const;
    void get(const Request& request, Response& response);
    void post(const Request& request, Response& response);
    /// True when the page may go on; else it was answered.
    bool mayWork(const json::Request& request, Response& response);
    void work(json::Request request, Response& response);

    Desk& desk;
    Floor& floor;
    Answer answer;
    const std::string key = randomKey();
    int port = 0;
    httplib::Server http;
    std::thread thread;
};

httplib::Server::HandlerResponse Server::Impl::admit(const Request& request,
                                                     Response& response) const {
    const std::string why =
        refusal({request.path, request.get_header_value("Host"), request.get_header_value("Origin"),
                 request.get_header_value("Sec-Fetch-Site")},
                key);
    if (why.empty()) return httplib::Server::HandlerResponse::Unhandled;
    refuse(response, 403, why);
    return httplib::Server::HandlerResponse::Handled;
}

void Server::Impl::get(const Request& request, Response& response) {
    const std::string name = behindKey(request.path, key);
    for (const PageFile& file : pageFiles()) {
        if (name != file.name) continue;
        response.set_content(file.text.data(), file.text.size(), file.type);
        return;
    }
    refuse(response, 404, "there is no such file");
}

bool Server::Impl::mayWork(const json::Request& request, Response& response) {
    const std::string what = request.text("do"), page = request.text("page");
    if (page.size() > 64) {
        refuse(response, 400, "the name of the page is too long");
        return false;
    }
    const bool works = what == "open" ? floor.claim(page, request.text("was", ""),
                                                    request.flag("takesOver", false))
                                      : floor.holds(page);
    if (!works) refuse(response, 409, "another page works on this drawing");
    if (works && what == "bye") floor.leave(page);
    if (works && (what == "bye" || what == "ping")) response.set_content("{}", kJson);
    return works && response.body.empty();
}

void Server::Impl::work(json::Request request, Response& response) {
    const auto outcome = desk.ask(
        [this, request = std::move(request)](const Reply& reply) { answer(request, reply); });
    if (outcome)
        response.set_content(*outcome, kJson);
    else
        refuse(response, 503, "the session is busy, or it is over");
}

void Server::Impl::post(const Request& request, Response& response) {
    const bool isJson = request.get_header_value("Content-Type").rfind("application/json", 0) == 0;
    if (behindKey(request.path, key) != "api" || !isJson)
        return refuse(response, 404, "requests are JSON for api");
    std::optional<json::Request> asked = json::Request::parse(request.body);
    if (!asked) return refuse(response, 400, "the request is no object of JSON");
    try {
        if (mayWork(*asked, response)) work(std::move(*asked), response);
    } catch (const json::Lacking& what) {
        refuse(response, 400, std::string("the request lacks ") + what.what());
    } catch (const std::exception& problem) {
        refuse(response, 500, problem.what());
    }
}

Server::Server(Desk& desk, Floor& floor, Answer answer)
    : m_impl(std::make_unique<Impl>(desk, floor, std::move(answer))) {
    Impl& impl = *m_impl;
    httplib::Server& http = impl.http;
    http.new_task_queue = [] { return new BoundedPool; };
    http.set_default_headers(kHeaders);
    http.set_payload_max_length(kMostBytes);
    http.set_keep_alive_timeout(1);  // so that the end of the session is not waited for
    http.set_keep_alive_max_count(1000);
    http.set_tcp_nodelay(true);
    http.set_pre_routing_handler([&impl](const Request& request, Response& response) {
        return impl.admit(request, response);
    });
    const char* const everything = ".*";
    http.Get(everything,
             [&impl](const Request& request, Response& response) { impl.get(request, response); });
    http.Post(everything, [&impl](const Request& request, Response& response) {
        impl.post(request, response);
    });
}

bool Server::start() {
    m_impl->port = m_impl->http.bind_to_any_port("127.0.0.1");
    if (m_impl->port <= 0) return false;
    m_impl->thread = std::thread([this] { m_impl->http.listen_after_bind(); });
    return true;
}

Server::~Server() {
    if (!m_impl->thread.joinable()) return;
    // A server that has not begun to listen yet would not hear of its end.
    while (!m_impl->http.is_running())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    m_impl->http.stop();
    m_impl->thread.join();
}

std::string Server::address() const {
    return "http://127.0.0.1:" + std::to_string(m_impl->port) + "/" + m_impl->key + "/";
}

}  // namespace window
