#pragma once

#include <QLocalServer>
#include <QObject>
#include <memory>
#include <string>

namespace brindlet {

class Directories;

/// Sees to it that a person has one program over one store: a second start only brings the first
/// one's window to the front. They meet at a socket that only its user may use, in the folder for
/// such things that goes with the session, or else in the private temporary one. It stays reachable
/// where the desktop has no tray. What a crash leaves behind is in nobody's way.
///
/// Made before the toolkit, which takes what the desktop says of the start out of the environment.
/// Main thread.
class SingleInstance : public QObject {
    Q_OBJECT

  public:
    enum class Found {
        /// This is the one; also when the folder cannot be used.
        nobody,
        /// It was told to show itself.
        another,
        /// There is one that does not answer.
        silent
    };

    /// `patience` is how many milliseconds another one may take to answer.
    explicit SingleInstance(const Directories& directories, int patience = 5'000);
    ~SingleInstance() override;

    /// Blocks until the other one has answered.
    Found claim();
    /// From now on others are heard. After the application object is made.
    void listen();
    /// The next start will be the one.
    void end();

    /// The file of the socket.
    const std::string& path() const { return path_; }

  Q_SIGNALS:
    /// Another start wants the window. With the token it lets a window come to the front, where
    /// the desktop gave it one.
    void raiseAsked(const QByteArray& activationToken);

  private:
    class Descriptor;

    Descriptor lock() const;
    void hear();

    const std::string path_;
    const int patience_;
    /// Listens from the claim on, so that who comes before the loop runs can wait.
    int socket_ = -1;
    std::unique_ptr<QLocalServer> server_;
};

}  // namespace brindlet
