#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sample/IndexWriter.h"
#include "sample/MailLayout.h"
#include "sample/MailSettings.h"

namespace brindlet::sample {

/// A sample home made account by account and message by message, for whoever must know each of
/// them. It stands once `finish` has been called. Blocking, one thread.
class HandmadeHome {
  public:
    /// The folder is made; it must not hold a Library yet.
    explicit HandmadeHome(std::string home);

    const std::string& home() const { return home_; }
    std::string dataRoot() const;
    std::string indexPath() const;

    /// What `finish` writes, with the accounts that `addAccount` has added.
    MailSettings settings;

    /// An account with that name and, unless it is empty, that address; gives its number.
    std::size_t addAccount(const std::string& name, const std::string& address);
    /// A mailbox by its path, "/" between levels; gives its row.
    std::int64_t addMailbox(std::size_t account, const std::string& path);

    struct Message {
        std::int64_t mailbox = 0;
        /// Without brackets; empty for none.
        std::string messageId = {};
        std::string sender = "someone@pinebrook.example";
        std::string subject = "Hello";
        /// Later messages have later ones by themselves where this is 0.
        std::int64_t dateSent = 0;
        std::string body = "Hello";
        FileKind kind = FileKind::whole;
        /// The name of an attachment that lies apart; empty for none.
        std::string attachment = {};
        std::vector<std::int64_t> labels = {};
        bool withFile = true;
        bool read = false;
    };
    /// Gives the message's row.
    std::int64_t addMessage(const Message& message);

    /// Closes the index and writes the settings; false when anything has failed since the start.
    bool finish();

  private:
    struct Mailbox {
        std::int64_t row = 0;
        std::string data;
    };

    const std::string home_;
    std::unique_ptr<IndexWriter> index_;
    std::vector<Mailbox> mailboxes_;
    std::int64_t lastRow_ = 100;
    bool good_ = true;
};

}  // namespace brindlet::sample
