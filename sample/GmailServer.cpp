#include "sample/GmailServer.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <list>
#include <map>
#include <thread>
#include <utility>

#include "base/Cancel.h"
#include "base/Files.h"
#include "sample/CertificateAuthority.h"
#include "sample/GmailConversation.h"
#include "sample/GmailMail.h"
#include "sample/GmailSettings.h"
#include "sample/Loopback.h"
#include "sample/MailSettings.h"
#include "sample/ServerConnection.h"

namespace brindlet::sample {
namespace {

/// A client that has hung up must not end the process. The thread's own, so that whoever runs the
/// server keeps its ways.
void blockBrokenPipes() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

GmailSettings freshSettings(const std::string& home) {
    GmailSettings settings;
    const auto mail = readMailSettings(home);
    if (!mail) return settings;
    for (const auto& account : mail->accounts)
        if (account.gmail && !account.addresses.empty())
            settings.passwords.emplace(account.addresses.front(), makeAppPassword());
    return settings;
}

/// Empty when the settings stand.
std::string settingsProblem(const std::string& home) {
    if (readGmailSettings(home)) return "";
    const std::string path = gmailSettingsPath(home);
    if (files::exists(path)) return path + " cannot be understood.";
    return writeGmailSettings(home, freshSettings(home)) ? "" : path + " cannot be written.";
}

}  // namespace

/// Once the listening thread runs, all but the waking is its alone.
struct GmailServer::State {
    ~State() {
        if (listener >= 0) ::close(listener);
    }

    /// Until somebody wakes it.
    void listen();
    void welcome(int socket);
    void dismissFinished();
    TlsIdentity identity(GmailCertificate certificate);

    struct Guest {
        Guest(int socket, ServerConnection::Speech speech, TlsIdentity identity)
            : connection(socket, speech, std::move(identity)) {}

        ServerConnection connection;
        CancelToken cancel;
        std::atomic<bool> finished = false;
        /// To be joined: a thread that has used OpenSSL leaves it something to clean up.
        std::thread thread;
    };

    std::string home;
    std::unique_ptr<GmailMail> mail;
    CertificateAuthority authority;
    std::map<GmailCertificate, TlsIdentity> identities;
    WakePipe leave;
    int listener = -1;
    std::uint16_t port = 0;
    std::list<Guest> guests;
    std::thread thread;
};

TlsIdentity GmailServer::State::identity(GmailCertificate certificate) {
    using Lifetime = CertificateAuthority::Lifetime;
    TlsIdentity& made = identities[certificate];
    if (made) return made;
    CertificateAuthority::Request request;
    request.hosts = {"localhost", "127.0.0.1"};
    if (certificate == GmailCertificate::expired) request.lifetime = Lifetime::expired;
    if (certificate == GmailCertificate::notYetValid) request.lifetime = Lifetime::notYetValid;
    if (certificate == GmailCertificate::wrongHost) request.hosts = {"imap.other.example"};
    CertificateAuthority::Identity shown;
    if (certificate == GmailCertificate::selfSigned)
        shown = CertificateAuthority::selfSigned(request);
    else if (certificate == GmailCertificate::foreign)
        shown = CertificateAuthority("Nobody's authority").issue(request);
    else
        shown = authority.issue(request);
    return made = tlsIdentity(shown.certificate, shown.key);
}

void GmailServer::State::welcome(int socket) {
    using Speech = ServerConnection::Speech;
    dismissFinished();
    const auto settings = readGmailSettings(home).value_or(GmailSettings());
    const GmailCertificate certificate = settings.faults.certificate;
    const bool plain = certificate == GmailCertificate::plainText;
    Guest& guest = guests.emplace_back(socket, plain ? Speech::plain : Speech::tls,
                                       plain ? nullptr : identity(certificate));
    guest.thread = std::thread([this, &guest, settings] {
        blockBrokenPipes();
        converse(guest.connection, *mail, settings, guest.cancel);
        guest.connection.cancel();
        guest.finished = true;
    });
}

void GmailServer::State::dismissFinished() {
    guests.remove_if([](Guest& guest) {
        const bool finished = guest.finished;
        if (finished) guest.thread.join();
        return finished;
    });
}

void GmailServer::State::listen() {
    std::array<pollfd, 2> waited{{{listener, POLLIN, 0}, {leave.readEnd, POLLIN, 0}}};
    while (waited[1].revents == 0) {
        if (::poll(waited.data(), waited.size(), -1) < 0) continue;
        if (waited[0].revents == 0) continue;
        const int socket = acceptFrom(listener);
        if (socket >= 0) welcome(socket);
    }
    for (Guest& guest : guests) {
        guest.cancel.cancel();
        guest.connection.cancel();
    }
    for (Guest& guest : guests) guest.thread.join();
}

GmailServer::Start GmailServer::start(const Options& options) {
    auto state = std::make_unique<State>();
    state->home = options.home;
    state->mail = GmailMail::open(options.home);
    if (!state->mail)
        return {nullptr, "There is no simulated mail program in " + options.home + "."};
    if (std::string problem = settingsProblem(options.home); !problem.empty())
        return {nullptr, std::move(problem)};
    state->listener = listenOnLoopback(options.port);
    if (state->listener < 0 || !state->leave.good())
        return {nullptr, "Port " + std::to_string(options.port) + " cannot be listened on."};
    state->port = portOf(state->listener);
    state->thread = std::thread([running = state.get()] { running->listen(); });
    return {std::unique_ptr<GmailServer>(new GmailServer(std::move(state))), ""};
}

GmailServer::GmailServer(std::unique_ptr<State> state) : state_(std::move(state)) {}

GmailServer::~GmailServer() {
    state_->leave.wake();
    state_->thread.join();
}

std::uint16_t GmailServer::port() const {
    return state_->port;
}

const std::string& GmailServer::authority() const {
    return state_->authority.certificate();
}

}  // namespace brindlet::sample
