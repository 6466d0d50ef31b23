#include "app/SingleInstance.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/Files.h"
#include "platform/Directories.h"

namespace brindlet {
namespace {

/// No desktop's token is as long.
constexpr qint64 longestRequest = 4'096;
constexpr char answer = '!';

std::string folder(const Directories& directories) {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    struct stat status {};
    if (runtime && runtime[0] == '/' && ::stat(runtime, &status) == 0 && S_ISDIR(status.st_mode) &&
        status.st_uid == ::getuid() && (status.st_mode & 077) == 0)
        return runtime;
    return directories.temporary();
}

/// One name a store, whatever way leads to it.
std::string nameFor(const std::string& store) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(store.c_str(), nullptr),
                                                           &std::free);
    const auto* path = real ? real.get() : store.c_str();
    return "brindlet-" +
           QCryptographicHash::hash(path, QCryptographicHash::Sha256).left(8).toHex().toStdString();
}

/// What the desktop gave this start, one way or the other, to bring a window to the front with.
std::string activationToken() {
    for (const auto* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
        if (const char* const token = std::getenv(name); token && *token) return token;
    return {};
}

enum class Reply { shown, gone, none };

/// Asks the one at the other end to show itself.
Reply ask(int socket, const std::string& token, int patience) {
    const auto request = token + '\n';
    if (::send(socket, request.data(), request.size(), MSG_NOSIGNAL) < 0) return Reply::gone;
    pollfd waiting{socket, POLLIN, 0};
    if (::poll(&waiting, 1, patience) <= 0) return Reply::none;
    char byte = 0;
    return ::recv(socket, &byte, 1, 0) == 1 && byte == answer ? Reply::shown : Reply::gone;
}

}  // namespace

class SingleInstance::Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    ~Descriptor() { close(); }

    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    void close() {
        if (number_ >= 0) ::close(release());
    }

  private:
    int number_;
};

SingleInstance::SingleInstance(const Directories& directories, int patience)
    : path_(folder(directories) + '/' + nameFor(directories.store()) + ".socket"),
      patience_(patience) {}

SingleInstance::~SingleInstance() {
    end();
}

/// Held while somebody finds out whether there is another one, and takes its place if not: of two
/// starts at once, the second finds the first already listening. Ends with the process.
SingleInstance::Descriptor SingleInstance::lock() const {
    Descriptor file(::open((path_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (file.get() >= 0) ::flock(file.get(), LOCK_EX);
    return file;
}

SingleInstance::Found SingleInstance::claim() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof address.sun_path) return Found::nobody;
    std::memcpy(address.sun_path, path_.c_str(), path_.size());
    const auto* where = reinterpret_cast<const sockaddr*>(&address);

    // Another time when the other one ended meanwhile, as it does while it quits.
    for (const QDeadlineTimer deadline(patience_); !deadline.hasExpired();) {
        auto turn = lock();
        Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (::connect(socket.get(), where, sizeof address) != 0) {
            // What lies there belongs to nobody.
            ::unlink(path_.c_str());
            Descriptor own(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
            // Nobody else can come before it is theirs alone: to connect needs the listening.
            if (::bind(own.get(), where, sizeof address) == 0 &&
                ::chmod(path_.c_str(), 0600) == 0 && ::listen(own.get(), SOMAXCONN) == 0)
                socket_ = own.release();
            return Found::nobody;
        }
        turn.close();
        const auto reply = ask(socket.get(), activationToken(), patience_);
        if (reply == Reply::shown) return Found::another;
        if (reply == Reply::none) break;
    }
    return Found::silent;
}

void SingleInstance::listen() {
    if (socket_ < 0) return;
    server_ = std::make_unique<QLocalServer>();
    connect(server_.get(), &QLocalServer::newConnection, this, &SingleInstance::hear);
    server_->listen(static_cast<qintptr>(socket_));
}

void SingleInstance::hear() {
    while (auto* other = server_->nextPendingConnection()) {
        connect(other, &QLocalSocket::disconnected, other, &QObject::deleteLater);
        other->setReadBufferSize(longestRequest);
        const auto read = [this, other] {
            if (other->bytesAvailable() >= longestRequest && !other->canReadLine()) other->abort();
            if (!other->canReadLine()) return;
            Q_EMIT raiseAsked(other->readLine().trimmed());
            other->write(&answer, 1);
            other->disconnectFromServer();
        };
        connect(other, &QLocalSocket::readyRead, this, read);
        if (other->bytesAvailable() > 0) read();
    }
}

void SingleInstance::end() {
    if (socket_ < 0) return;
    const auto turn = lock();
    ::unlink(path_.c_str());
    if (server_)
        server_.reset();
    else
        ::close(socket_);
    socket_ = -1;
}

}  // namespace brindlet
