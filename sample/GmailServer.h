#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace brindlet::sample {

/// A Gmail server on loopback for the Gmail accounts of a sample home: IMAP over TLS, under the
/// name "localhost" and the address 127.0.0.1, with a certificate of an authority that is made when
/// it starts. `GmailSettings` says what it is like. It has threads of its own, one for each
/// connection, and nothing of a password appears in anything that it writes, but the settings.
class GmailServer {
  public:
    struct Options {
        std::string home;
        /// 0 for one that is free.
        std::uint16_t port = 0;
    };
    struct Start {
        std::unique_ptr<GmailServer> server;
        /// Without a server: what was in the way, as a sentence.
        std::string problem;
    };
    /// Where the home has no settings for a server yet, they are written, with an app password for
    /// each Gmail account.
    static Start start(const Options& options);
    /// Hangs up on everybody and waits until all threads have ended.
    ~GmailServer();
    GmailServer(const GmailServer&) = delete;
    GmailServer& operator=(const GmailServer&) = delete;

    std::uint16_t port() const;
    /// The authority's certificate, PEM.
    const std::string& authority() const;

  private:
    struct State;
    explicit GmailServer(std::unique_ptr<State> state);
    const std::unique_ptr<State> state_;
};

}  // namespace brindlet::sample
