#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct sqlite3;

namespace brindlet::doubles {

/// A small mail folder below a home directory, made by hand, message by message: the index with
/// just the columns that are read, and one file a message.
class MailHome {
  public:
    static constexpr const char* account = "11111111-2222-3333-4444-555555555555";

    explicit MailHome(std::string home);
    ~MailHome();
    MailHome(const MailHome&) = delete;
    MailHome& operator=(const MailHome&) = delete;

    /// A mailbox of the account by its percent-encoded path; gives its row id.
    std::int64_t addMailbox(const std::string& path, const std::string& accountId = account);

    struct Message {
        std::int64_t mailbox = 0;
        /// "Name <address>" or an address.
        std::string sender;
        std::string subject;
        std::int64_t dateSent = 1'699'999'000;
        /// Without brackets; none leaves the header out.
        std::optional<std::string> messageID;
        std::string body = "Hello";
        bool withFile = true;
    };
    std::int64_t addMessage(const Message& message);
    void addRecipient(std::int64_t message, const std::string& address);

    const std::string& dataRoot() const { return root_; }

  private:
    void run(const std::string& sql);
    std::int64_t addressRow(const std::string& sender);

    std::string root_;
    sqlite3* index_ = nullptr;
};

}  // namespace brindlet::doubles
