#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

#include "doubles/Doubles.h"
#include "platform/posix/Pipe.h"
#include "sample/CertificateAuthority.h"

namespace brindlet {

/// Dovecot, as tools/unpack_servers lays it out, on a port of the loopback, for TLS alone. Every
/// name signs in with the one password, to the one home, whose mailboxes are called as on Gmail.
/// All its processes go when this goes.
///
/// They run as this user or, for root, as nobody, in a copy of their own: the process that speaks
/// with who has not signed in yet refuses to be root. One server at a time.
class DovecotServer {
  public:
    /// Why it cannot run here, as a sentence; empty when it can.
    static std::string missing();

    static constexpr const char* password = "abcdefghijklmnop";
    static constexpr const char* inbox = "INBOX";
    static constexpr const char* allMail = "[Gmail]/All Mail";

    DovecotServer();
    ~DovecotServer();
    DovecotServer(const DovecotServer&) = delete;
    DovecotServer& operator=(const DovecotServer&) = delete;

    /// Puts a message after all others, into a mailbox that need not be there yet. Before the
    /// start.
    void deliver(const std::string& mailbox, const std::string& message);
    /// From here on whoever connects is answered. The certificate is for this host.
    void start(const std::string& host);

    std::uint16_t port() const { return port_; }
    /// The certificate of the authority that vouches for it.
    const std::string& trusted() const { return authority_.certificate(); }
    /// What it has said of itself and its troubles.
    std::string log() const;

  private:
    std::string folderOf(const std::string& mailbox) const;
    void copyServer();
    std::string settings() const;
    void giveToNobody() const;

    doubles::TemporaryDirectories directories_;
    sample::CertificateAuthority authority_;
    /// The folder that /usr stands in, with all of the server.
    std::string unpacked_;
    std::string modules_;
    /// Until the server has it.
    Descriptor listener_;
    std::uint16_t port_;
    int delivered_ = 0;
    pid_t process_ = -1;
};

}  // namespace brindlet
