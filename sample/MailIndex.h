#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlet::sample {

/// The live index of a sample home, as the mail program itself uses it: it stays open, in WAL mode,
/// and others may copy or change it meanwhile. One thread. A failure shows as nothing found.
class MailIndex {
  public:
    /// None when there is no index at the path.
    static std::unique_ptr<MailIndex> open(const std::string& path);
    ~MailIndex();
    MailIndex(const MailIndex&) = delete;
    MailIndex& operator=(const MailIndex&) = delete;

    struct Mailbox {
        std::int64_t row = 0;
        std::string url;
    };
    std::vector<Mailbox> mailboxes();
    /// The new mailbox's row; 0 when there is one of that URL already.
    std::int64_t addMailbox(std::string_view url);
    /// As if the person had deleted it; its messages are listed nowhere then.
    bool removeMailbox(std::int64_t row);

    /// Row ids of what is filed in the mailbox or labelled with it, newest first. Valid until the
    /// next call.
    const std::vector<std::int64_t>& messages(std::int64_t mailbox);
    bool lists(std::int64_t mailbox, std::int64_t message);
    /// Those of them with the Message-ID, without its brackets; the case of ASCII letters aside.
    std::vector<std::int64_t> messagesWithId(std::int64_t mailbox, std::string_view messageId);
    /// Without brackets; none when the message has none, or is not there.
    std::optional<std::string> messageId(std::int64_t message);
    /// The mailbox that a message is filed in; 0 when it is not there.
    std::int64_t filedIn(std::int64_t message);

    struct Marks {
        bool read = false;
        bool flagged = false;
    };
    /// None when the message is not there.
    std::optional<Marks> marks(std::int64_t message);

    /// The mailboxes that a message is labelled with, in the order of their rows.
    std::vector<std::int64_t> labels(std::int64_t message);
    /// Nothing becomes of it when the message is not there.
    void addLabel(std::int64_t message, std::int64_t mailbox);
    void removeLabel(std::int64_t message, std::int64_t mailbox);

    /// Between these, nobody else sees a change, and nobody else makes one.
    bool begin();
    bool commit();
    void rollBack();
    /// The row id that the next message will have.
    std::int64_t nextRow();
    enum class Labels { keep, drop };
    /// Files a message elsewhere, under another row id.
    bool refile(std::int64_t message, std::int64_t newRow, std::int64_t mailbox, Labels labels);

    /// Moves that the server will make of itself.
    struct LaterMove {
        std::int64_t message = 0;
        std::int64_t mailbox = 0;
        /// Names it for its removal.
        std::int64_t id = 0;
    };
    void addLaterMove(double due, const LaterMove& move);
    /// The one that is due first, if it is by then.
    std::optional<LaterMove> firstLaterMove(double now);
    void removeLaterMove(std::int64_t id);
    /// When the last one is due; none when there is none.
    std::optional<double> lastDue();

  private:
    struct State;
    explicit MailIndex(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace brindlet::sample
