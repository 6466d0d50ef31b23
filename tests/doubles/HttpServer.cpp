#include "doubles/HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <set>
#include <string_view>
#include <thread>
#include <utility>

#include "base/Json.h"
#include "base/ThreadSafety.h"

namespace brindlet::doubles {
namespace {

constexpr int threads = 16;

struct Address {
    sockaddr_storage bytes{};
    socklen_t size = 0;

    sockaddr* get() { return reinterpret_cast<sockaddr*>(&bytes); }
};

Address addressOf(const std::string& text) {
    Address address;
    if (text == "::1") {
        auto& v6 = reinterpret_cast<sockaddr_in6&>(address.bytes);
        v6.sin6_family = AF_INET6;
        v6.sin6_addr = in6addr_loopback;
        address.size = sizeof v6;
    } else {
        auto& v4 = reinterpret_cast<sockaddr_in&>(address.bytes);
        v4.sin_family = AF_INET;
        v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.size = sizeof v4;
    }
    return address;
}

bool sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

/// How long the body says it is; nothing when it does not.
std::size_t contentLength(std::string_view head) {
    constexpr std::string_view name = "\r\nContent-Length: ";
    const auto at = head.find(name);
    if (at == std::string_view::npos) return 0;
    return static_cast<std::size_t>(std::atoll(head.data() + at + name.size()));
}

}  // namespace

struct HttpServer::State {
    Script script;
    std::string host;
    int listener = -1;
    std::uint16_t port = 0;
    std::vector<std::thread> crew;

    Mutex mutex;
    Condition changed;
    bool closed BRINDLET_GUARDED_BY(mutex) = false;
    std::size_t readAtMost BRINDLET_GUARDED_BY(mutex) = static_cast<std::size_t>(-1);
    std::set<int> open BRINDLET_GUARDED_BY(mutex);
    std::vector<Request> requests BRINDLET_GUARDED_BY(mutex);
    int received BRINDLET_GUARDED_BY(mutex) = 0;
    int connections BRINDLET_GUARDED_BY(mutex) = 0;
    int inFlight BRINDLET_GUARDED_BY(mutex) = 0;
    int mostInFlight BRINDLET_GUARDED_BY(mutex) = 0;
    int hangUps BRINDLET_GUARDED_BY(mutex) = 0;

    void serve();
    void converse(int socket, std::size_t most);
    bool read(int socket, std::size_t most, Request& request);
    bool waitFor(int State::*counter, int least);
};

bool HttpServer::State::read(int socket, std::size_t most, Request& request) {
    constexpr std::string_view end = "\r\n\r\n";
    std::string bytes;
    std::size_t headEnd = std::string::npos;
    while (true) {
        headEnd = bytes.find(end);
        if (headEnd != std::string::npos) {
            headEnd += end.size();
            if (bytes.size() >= headEnd + contentLength(std::string_view(bytes).substr(0, headEnd)))
                break;
        }
        if (bytes.size() >= most) return false;
        char buffer[4096];
        const auto got = ::recv(socket, buffer, std::min(sizeof buffer, most - bytes.size()), 0);
        if (got <= 0) return false;
        bytes.append(buffer, static_cast<std::size_t>(got));
    }
    request.head = bytes.substr(0, headEnd);
    request.body = bytes.substr(headEnd);
    return true;
}

void HttpServer::State::converse(int socket, std::size_t most) {
    Request request;
    if (!read(socket, most, request)) return;
    {
        Lock lock(mutex);
        requests.push_back(request);
        ++received;
        mostInFlight = std::max(mostInFlight, ++inFlight);
        changed.notifyAll();
    }
    const Reply reply = script(request);
    {
        Lock lock(mutex);
        --inFlight;
    }
    bool heard = true;
    if (!reply.dribbles) heard = sendAll(socket, reply.bytes);
    for (std::size_t i = 0; reply.dribbles && heard && i < reply.bytes.size(); ++i) {
        heard = sendAll(socket, {&reply.bytes[i], 1});
        std::this_thread::yield();
    }
    if (!reply.stays) return;
    char ignored = 0;
    while (::recv(socket, &ignored, 1, 0) > 0) {
    }
    Lock lock(mutex);
    ++hangUps;
    changed.notifyAll();
}

void HttpServer::State::serve() {
    while (true) {
        const int socket = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0) return;
        const int yes = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
        std::size_t most = 0;
        {
            Lock lock(mutex);
            ++connections;
            open.insert(socket);
            most = readAtMost;
            if (closed) ::shutdown(socket, SHUT_RDWR);
        }
        converse(socket, most);
        Lock lock(mutex);
        open.erase(socket);
        ::close(socket);
    }
}

bool HttpServer::State::waitFor(int State::*counter, int least) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    Lock lock(mutex);
    while (this->*counter < least) {
        const auto left = until - std::chrono::steady_clock::now();
        if (left <= left.zero()) return false;
        changed.waitFor(mutex, left);
    }
    return true;
}

HttpServer::HttpServer(Script script, const std::string& address)
    : state_(std::make_unique<State>()) {
    state_->script = std::move(script);
    state_->host = address == "::1" ? "[::1]" : address;
    auto place = addressOf(address);
    state_->listener = ::socket(place.bytes.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // Without a place to listen every test of it fails, at its first call.
    ::bind(state_->listener, place.get(), place.size);
    ::listen(state_->listener, 128);
    ::getsockname(state_->listener, place.get(), &place.size);
    // Both families have the port in the same place.
    state_->port = ntohs(reinterpret_cast<const sockaddr_in&>(place.bytes).sin_port);
    for (int i = 0; i < threads; ++i)
        state_->crew.emplace_back([state = state_.get()] { state->serve(); });
}

HttpServer::~HttpServer() {
    ::shutdown(state_->listener, SHUT_RDWR);
    {
        Lock lock(state_->mutex);
        state_->closed = true;
        for (const int socket : state_->open) ::shutdown(socket, SHUT_RDWR);
    }
    for (auto& thread : state_->crew) thread.join();
    ::close(state_->listener);
}

void HttpServer::hangUpAfter(std::size_t bytes) {
    Lock lock(state_->mutex);
    state_->readAtMost = bytes;
}

std::string HttpServer::url() const {
    return "http://" + state_->host + ":" + std::to_string(state_->port);
}

std::uint16_t HttpServer::port() const {
    return state_->port;
}

std::vector<HttpServer::Request> HttpServer::requests() const {
    Lock lock(state_->mutex);
    return state_->requests;
}

int HttpServer::connections() const {
    Lock lock(state_->mutex);
    return state_->connections;
}

int HttpServer::mostInFlight() const {
    Lock lock(state_->mutex);
    return state_->mostInFlight;
}

bool HttpServer::waitForRequests(int count) const {
    return state_->waitFor(&State::received, count);
}

bool HttpServer::waitForHangUps(int count) const {
    return state_->waitFor(&State::hangUps, count);
}

HttpServer::Reply HttpServer::answer(const std::string& body, const std::string& status) {
    return {"HTTP/1.1 " + status + "\r\nContent-Type: application/json\r\nContent-Length: " +
                std::to_string(body.size()) + "\r\n\r\n" + body,
            false, false};
}

std::string chatCompletion(const std::string& content) {
    JsonWriter out;
    out.beginObject();
    out.member("id", "chatcmpl-1");
    out.member("object", "chat.completion");
    out.key("choices");
    out.beginArray();
    out.beginObject();
    out.member("index", 0);
    out.key("message");
    out.beginObject();
    out.member("role", "assistant");
    out.member("content", content);
    out.endObject();
    out.member("finish_reason", "stop");
    out.endObject();
    out.endArray();
    out.key("usage");
    out.beginObject();
    out.member("prompt_tokens", 1200);
    out.endObject();
    out.endObject();
    return std::move(out).text();
}

}  // namespace brindlet::doubles
