#include "sample/GmailConversation.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "sample/ImapSession.h"

namespace brindlet::sample {
namespace {

constexpr std::size_t blockSize = 16 * 1024;

/// The connection as the faults leave it.
class FaultyLine {
  public:
    FaultyLine(ServerConnection& connection, const GmailSettings::Faults& faults,
               const CancelToken& cancel)
        : connection_(connection), faults_(faults), cancel_(cancel) {}

    /// False when the line is dead.
    bool send(std::string_view bytes) {
        pending_ += bytes;
        if (pending_.size() >= blockSize) flush();
        return alive_;
    }

    /// Ends an answer.
    void endAnswer() {
        flush();
        late_ = false;
    }

    /// Empty when the line is dead.
    std::string receive() {
        std::size_t most = blockSize;
        if (faults_.closesAfterReceived) {
            const std::int64_t left = *faults_.closesAfterReceived - received_;
            if (left <= 0) alive_ = false;
            most = static_cast<std::size_t>(std::clamp<std::int64_t>(left, 0, blockSize));
        }
        if (!alive_) return "";
        std::string bytes = connection_.receive(most);
        received_ += static_cast<std::int64_t>(bytes.size());
        return bytes;
    }

  private:
    void flush() {
        if (pending_.empty() || !alive_) return;
        if (!late_ && faults_.delay > 0 && !cancel_.sleep(faults_.delay)) alive_ = false;
        late_ = true;
        std::string_view bytes = pending_;
        std::optional<std::int64_t> left;
        if (faults_.closesAfterSent) {
            left = std::max<std::int64_t>(*faults_.closesAfterSent - sent_, 0);
            bytes = bytes.substr(0, static_cast<std::size_t>(*left));
        }
        const std::size_t step = faults_.splitsEveryByte ? 1 : bytes.size();
        for (std::size_t at = 0; alive_ && at < bytes.size(); at += step)
            alive_ = connection_.send(bytes.substr(at, step));
        sent_ += static_cast<std::int64_t>(bytes.size());
        if (left && static_cast<std::int64_t>(bytes.size()) == *left) alive_ = false;
        pending_.clear();
    }

    ServerConnection& connection_;
    const GmailSettings::Faults& faults_;
    const CancelToken& cancel_;
    std::string pending_;
    std::int64_t sent_ = 0;
    std::int64_t received_ = 0;
    /// The answer in hand has been waited for already.
    bool late_ = false;
    bool alive_ = true;
};

}  // namespace

void converse(ServerConnection& connection, GmailMail& mail, const GmailSettings& settings,
              const CancelToken& cancel) {
    if (!connection.open()) return;
    FaultyLine line(connection, settings.faults, cancel);
    ImapSession session(
        [&](const std::string& address, const std::string& password) {
            return isAppPassword(settings, address, password) ? mail.account(address) : nullptr;
        },
        [&](std::string_view bytes) { return line.send(bytes); }, settings.faults);
    session.greet();
    line.endAnswer();
    while (!session.ended()) {
        const std::string bytes = line.receive();
        if (bytes.empty()) break;
        session.receive(bytes);
        line.endAnswer();
    }
    if (!settings.faults.closesAbruptly) connection.sayFarewell();
}

}  // namespace brindlet::sample
