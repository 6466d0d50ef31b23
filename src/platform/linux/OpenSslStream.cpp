#include "platform/linux/OpenSslStream.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <utility>

#include "base/ThreadSafety.h"
#include "platform/linux/SocketBio.h"
#include "platform/linux/SocketConnection.h"
#include "platform/linux/TlsContext.h"
#include "platform/linux/TlsWords.h"
#include "platform/posix/Interrupt.h"
#include "platform/posix/NetworkWords.h"

namespace brindlet {
namespace {

constexpr std::string_view cancelledWords = "cancelled";
constexpr std::string_view closedWords = "the server closed the connection";
/// The most that one record of TLS carries.
constexpr std::size_t recordSize = 16 * 1024;

/// What the operations share is touched by one thread at a time: by the one that is inside an
/// operation or, when none is, by the one that cancels.
class OpenSslStream : public TlsStream {
  public:
    OpenSslStream(TlsAuthorities trusted, HostResolver resolver, std::string host,
                  std::uint16_t port)
        : trusted_(std::move(trusted)),
          resolver_(std::move(resolver)),
          host_(std::move(host)),
          port_(port) {}
    ~OpenSslStream() override { cancel(); }

    Failure connect() override;
    Failure send(std::string_view bytes) override;
    Received receive(std::size_t most) override;
    void cancel() override;

  private:
    /// Why OpenSSL stopped before its time.
    struct Stop {
        bool ended = false;
        Failure failure;
    };

    bool enter();
    void leave();
    void finish() BRINDLET_REQUIRES(mutex_);

    Failure open();
    Failure handshake();
    Failure sendAll(std::string_view bytes);
    Received receiveSome(std::size_t most);
    /// After a call that did not succeed: none when it was the socket's turn and now is no longer.
    std::optional<Stop> waitOrStop(int result);
    std::optional<short> eventsToWaitFor(int result) const;
    Stop stopAfter(int result);

    const TlsAuthorities trusted_;
    const HostResolver resolver_;
    const std::string host_;
    const std::uint16_t port_;

    Interrupt interrupt_;
    Mutex mutex_;
    bool inside_ BRINDLET_GUARDED_BY(mutex_) = false;
    bool cancelled_ BRINDLET_GUARDED_BY(mutex_) = false;

    Descriptor socket_;
    SocketState state_;
    HeldSsl<SSL> ssl_;
    /// Why nothing more comes or goes, once that is so.
    std::optional<Stop> stopped_;
    /// OpenSSL takes no further calls, not even the last one.
    bool broken_ = false;
};

bool OpenSslStream::enter() {
    Lock lock(mutex_);
    inside_ = !cancelled_;
    return inside_;
}

void OpenSslStream::leave() {
    Lock lock(mutex_);
    inside_ = false;
    if (cancelled_) finish();
}

TlsStream::Failure OpenSslStream::connect() {
    if (!enter()) return std::string(cancelledWords);
    auto failure = open();
    if (!failure) failure = handshake();
    if (failure) stopped_ = Stop{.failure = failure};
    leave();
    return failure;
}

TlsStream::Failure OpenSslStream::send(std::string_view bytes) {
    if (!enter()) return std::string(cancelledWords);
    auto failure = sendAll(bytes);
    leave();
    return failure;
}

TlsStream::Received OpenSslStream::receive(std::size_t most) {
    if (!enter()) return {.bytes = {}, .failure = std::string(cancelledWords)};
    auto received = receiveSome(most);
    leave();
    return received;
}

void OpenSslStream::cancel() {
    interrupt_.raise();
    Lock lock(mutex_);
    if (std::exchange(cancelled_, true)) return;
    if (!inside_) finish();
}

/// Says good-bye, as far as that goes without waiting, and lets go of the socket.
void OpenSslStream::finish() {
    if (ssl_ && SSL_is_init_finished(ssl_.get()) && !broken_) SSL_shutdown(ssl_.get());
    ERR_clear_error();
    ssl_.reset();
    socket_.close();
}

TlsStream::Failure OpenSslStream::open() {
    if (!interrupt_) return describeSocketError(EMFILE);
    const auto context = makeTlsContext(trusted_);
    if (!context) return "this computer's list of trusted authorities cannot be read";
    auto ssl = makeTls(*context, host_);
    if (!ssl) return "the server's name is not one to connect to";
    auto* bio = newSocketBio(state_);
    if (bio == nullptr) return "there is not enough memory for the connection";
    SSL_set_bio(ssl.get(), bio, bio);

    const auto lookup = lookUp(resolver_, host_, port_, interrupt_);
    if (!lookup) return std::string(cancelledWords);
    if (lookup->failure) return lookup->failure;
    auto connection = connectToAny(lookup->addresses, interrupt_);
    if (interrupt_.raised()) return std::string(cancelledWords);
    if (connection.failure) return connection.failure;
    socket_ = std::move(connection.socket);
    state_.descriptor = socket_.get();
    ssl_ = std::move(ssl);
    return std::nullopt;
}

TlsStream::Failure OpenSslStream::handshake() {
    while (true) {
        ERR_clear_error();
        const int result = SSL_connect(ssl_.get());
        if (result == 1) return std::nullopt;
        if (const auto stop = waitOrStop(result))
            return stop->ended ? std::string(closedWords) : stop->failure;
    }
}

TlsStream::Failure OpenSslStream::sendAll(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!stopped_) {
            std::size_t sent = 0;
            ERR_clear_error();
            const int result = SSL_write_ex(ssl_.get(), bytes.data(), bytes.size(), &sent);
            bytes.remove_prefix(sent);
            if (result == 1) continue;
            stopped_ = waitOrStop(result);
        }
        if (stopped_) return stopped_->ended ? std::string(closedWords) : stopped_->failure;
    }
    return std::nullopt;
}

TlsStream::Received OpenSslStream::receiveSome(std::size_t most) {
    Received received;
    auto& bytes = received.bytes;
    while (!stopped_ && bytes.size() < most) {
        const auto before = bytes.size();
        std::size_t got = 0;
        bytes.resize(before + std::min(recordSize, most - before));
        ERR_clear_error();
        const int result = SSL_read_ex(ssl_.get(), &bytes[before], bytes.size() - before, &got);
        bytes.resize(before + got);
        if (result == 1) continue;
        if (!bytes.empty() && eventsToWaitFor(result)) return received;
        stopped_ = waitOrStop(result);
    }
    if (!bytes.empty() || !stopped_) return received;
    received.ended = stopped_->ended;
    received.failure = stopped_->failure;
    return received;
}

std::optional<short> OpenSslStream::eventsToWaitFor(int result) const {
    switch (SSL_get_error(ssl_.get(), result)) {
        case SSL_ERROR_WANT_READ:
            return POLLIN;
        case SSL_ERROR_WANT_WRITE:
            return POLLOUT;
        default:
            return std::nullopt;
    }
}

std::optional<OpenSslStream::Stop> OpenSslStream::waitOrStop(int result) {
    const auto events = eventsToWaitFor(result);
    if (!events) return stopAfter(result);
    if (interrupt_.wait(socket_.get(), *events)) return std::nullopt;
    return Stop{.failure = std::string(cancelledWords)};
}

OpenSslStream::Stop OpenSslStream::stopAfter(int result) {
    const int error = SSL_get_error(ssl_.get(), result);
    broken_ = error != SSL_ERROR_ZERO_RETURN;
    switch (error) {
        case SSL_ERROR_ZERO_RETURN:
            return {.ended = true, .failure = {}};
        case SSL_ERROR_SYSCALL:
            if (state_.ended) return {.ended = true, .failure = {}};
            return {.failure = describeSocketError(state_.error)};
        default:
            break;
    }
    const auto verdict = SSL_get_verify_result(ssl_.get());
    if (verdict != X509_V_OK) return {.failure = describeCertificateError(verdict)};
    return {.failure = describeTlsError(ERR_peek_error())};
}

}  // namespace

OpenSslConnector::OpenSslConnector(TlsAuthorities trusted, HostResolver resolver)
    : trusted_(std::move(trusted)), resolver_(std::move(resolver)) {}

std::shared_ptr<TlsStream> OpenSslConnector::make(const std::string& host, std::uint16_t port) {
    return std::make_shared<OpenSslStream>(trusted_, resolver_, host, port);
}

}  // namespace brindlet
