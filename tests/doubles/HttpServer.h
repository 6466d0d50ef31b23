#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace brindlet::doubles {

/// An HTTP server on this machine, with real sockets and threads of its own: one request a
/// connection, then it hangs up. Records what comes, and answers as the test says. Used from the
/// test's thread, but for the script.
class HttpServer {
  public:
    struct Request {
        /// Request line and headers, with their line ends.
        std::string head;
        std::string body;
    };
    struct Reply {
        /// Everything that goes out, head and body.
        std::string bytes;
        /// Each byte by itself, with a breath between.
        bool dribbles = false;
        /// Stays on the line afterwards, silent, until the client hangs up.
        bool stays = false;
    };
    /// Runs on a thread for each connection, at most 16 at once; it may block.
    using Script = std::function<Reply(const Request&)>;

    /// Listens on a port that is free. The address is 127.0.0.1 or ::1.
    explicit HttpServer(Script script, const std::string& address = "127.0.0.1");
    /// Hangs up on everybody. A script that blocks has to be let go before.
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// From now on it hangs up after so many bytes of a request, and answers nothing.
    void hangUpAfter(std::size_t bytes);

    /// "http://127.0.0.1:<port>".
    std::string url() const;
    std::uint16_t port() const;
    std::vector<Request> requests() const;
    int connections() const;
    /// The most requests that were answered at one time.
    int mostInFlight() const;
    /// Block until so many requests have come in, or clients have hung up on a reply that stays.
    /// False after ten seconds.
    bool waitForRequests(int count) const;
    bool waitForHangUps(int count) const;

    /// A reply with a length: 200 and JSON, unless told otherwise.
    static Reply answer(const std::string& body, const std::string& status = "200 OK");

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// What a chat server answers whose model has said this.
std::string chatCompletion(const std::string& content);

}  // namespace brindlet::doubles
