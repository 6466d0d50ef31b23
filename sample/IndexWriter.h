#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace brindlet::sample {

/// One row of the index's messages, as the mail program would note it.
struct IndexedMessage {
    std::int64_t rowId = 0;
    std::int64_t mailbox = 0;
    /// 0 for a message without one.
    std::int64_t sender = 0;
    std::int64_t subject = 0;
    /// "Re: " and its like, which stand here and not in the subject.
    std::string_view subjectPrefix;
    std::string_view summary;
    /// With its angle brackets; empty when the message has none.
    std::string_view messageIdHeader;
    std::int64_t dateSent = 0;
    std::int64_t dateReceived = 0;
    std::int64_t remoteId = 0;
    std::int64_t flags = 0;
    std::int64_t size = 0;
    std::int64_t conversation = 0;
    bool read = false;
    bool flagged = false;
    bool fromList = false;
};

/// Writes the mail program's index database in WAL mode. Blocking, one thread at a time. A failure
/// of any call shows in `ok` and stays; the calls after it do nothing.
class IndexWriter {
  public:
    /// Makes a new, empty index at the path, in a folder that stands.
    explicit IndexWriter(const std::string& path);
    ~IndexWriter();
    IndexWriter(const IndexWriter&) = delete;
    IndexWriter& operator=(const IndexWriter&) = delete;

    bool ok() const;

    void begin();
    void commit();
    /// Brings all that is committed into the database file. What is committed from here on stays in
    /// the -wal file, past the end of this writer, as it does while the mail program runs.
    void checkpointForTheLastTime();

    std::int64_t addMailbox(std::string_view url);
    /// The row of an address with that display name, made when there is none.
    std::int64_t address(std::string_view address, std::string_view comment);
    std::int64_t subject(std::string_view subject);
    void addMessage(const IndexedMessage& message);
    void addRecipient(std::int64_t message, std::int64_t address, std::int64_t position);
    void addLabel(std::int64_t message, std::int64_t mailbox);
    void addAttachment(std::int64_t message, std::string_view part, std::string_view name);
    /// Sets the mailboxes' own tallies by what is filed in them and labelled with them.
    void updateMailboxCounts();

  private:
    void run(const char* statement);

    struct State;
    std::unique_ptr<State> state_;
    std::unordered_map<std::string, std::int64_t> addresses_;
    std::unordered_map<std::string, std::int64_t> subjects_;
};

}  // namespace brindlet::sample
