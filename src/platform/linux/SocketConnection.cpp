#include "platform/linux/SocketConnection.h"

#include <sys/socket.h>

#include <cerrno>
#include <cstddef>
#include <vector>

#include "platform/posix/NetworkWords.h"

namespace brindlet {
namespace {

/// The attempts that are under way, and what became of the others.
class Race {
  public:
    bool over() const { return static_cast<bool>(winner_); }
    bool running() const { return !attempts_.empty(); }
    std::optional<int> firstError() const { return firstError_; }
    Descriptor takeWinner() { return std::move(winner_); }

    void start(const HostAddress& address) {
        Descriptor socket(
            ::socket(address.bytes.ss_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        const auto* bytes = reinterpret_cast<const sockaddr*>(&address.bytes);
        if (socket && ::connect(socket.get(), bytes, address.size) == 0)
            winner_ = std::move(socket);
        else if (socket && errno == EINPROGRESS)
            attempts_.push_back(std::move(socket));
        else
            failed(errno);
    }

    Interrupt::Outcome wait(const Interrupt& interrupt, int milliseconds) {
        std::vector<pollfd> watched;
        for (const auto& socket : attempts_) watched.push_back({socket.get(), POLLOUT, 0});
        const auto outcome = interrupt.wait(watched, milliseconds);
        if (outcome == Interrupt::Outcome::ready) judge(watched);
        return outcome;
    }

  private:
    void judge(const std::vector<pollfd>& watched) {
        std::vector<Descriptor> left;
        for (std::size_t i = 0; i < attempts_.size(); ++i) {
            if (watched[i].revents == 0) {
                left.push_back(std::move(attempts_[i]));
                continue;
            }
            int error = 0;
            socklen_t size = sizeof error;
            ::getsockopt(watched[i].fd, SOL_SOCKET, SO_ERROR, &error, &size);
            if (error != 0)
                failed(error);
            else if (!winner_)
                winner_ = std::move(attempts_[i]);
        }
        attempts_ = std::move(left);
    }
    void failed(int error) {
        if (!firstError_) firstError_ = error;
    }

    std::vector<Descriptor> attempts_;
    Descriptor winner_;
    std::optional<int> firstError_;
};

}  // namespace

SocketConnection connectToAny(std::span<const HostAddress> addresses, const Interrupt& interrupt,
                              int headStart) {
    Race race;
    while (!race.over()) {
        if (!addresses.empty()) {
            race.start(addresses.front());
            addresses = addresses.subspan(1);
            if (race.over()) break;
        }
        if (!race.running()) {
            if (!addresses.empty()) continue;
            return {{}, describeSocketError(race.firstError().value_or(EHOSTUNREACH))};
        }
        const auto outcome = race.wait(interrupt, addresses.empty() ? -1 : headStart);
        if (outcome == Interrupt::Outcome::interrupted) return {};
    }
    return {race.takeWinner(), std::nullopt};
}

}  // namespace brindlet
