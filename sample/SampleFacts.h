#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace brindlet::sample {

/// What a reader of a sample home folder must find in it, told by the generator.
struct SampleFacts {
    struct Folder {
        std::int64_t id = 0;
        std::string name;
        std::string url;
        /// The raw word.
        std::string role;
        /// The larger of the rows filed here and the rows labelled with it.
        std::int64_t count = 0;
        /// Row ids of the messages that it lists, newest first, lower ids first among equals: those
        /// filed here, or, with none, those labelled with it.
        std::vector<std::int64_t> messages;
    };
    struct Account {
        std::string id;
        /// What the mail program calls it, and its address; no index tells these.
        std::string name;
        std::string address;
        /// In the order of their index rows.
        std::vector<Folder> folders;
    };
    struct Message {
        std::int64_t id = 0;
        /// Of the account that files it.
        std::string account;
        /// The mailbox that files it.
        std::int64_t mailbox = 0;
        /// As a reader gets it from the file; none where there is no file or no id in it.
        std::optional<std::string> messageId;
        /// The raw word of the category that the message was written as.
        std::string category;
        /// "name <address>" or the bare address, as the index has it; empty without a sender row.
        std::string sender;
        std::string subject;
        std::int64_t dateSent = 0;
        /// Below the home folder; none where the file is missing.
        std::optional<std::string> path;
        std::int64_t fileSize = 0;
        /// The file is there and holds a message, with a header and a text.
        bool readable = false;
        /// The raw word of what is out of the ordinary.
        std::string trouble;
    };

    /// In no order that matters.
    std::vector<Account> accounts;
    /// By ascending row id.
    std::vector<Message> messages;
    /// Lower-cased addresses that the owner has written to, as far as a mailbox's URL says "Sent".
    std::set<std::string> correspondents;
    /// Mailbox URLs that belong to no account that is served.
    std::vector<std::string> foreignMailboxes;
    std::int64_t newest = 0;
};

/// Writes the facts as JSON, with keys named as the fields; false when the file cannot be written.
bool writeFacts(const SampleFacts& facts, const std::string& path);

}  // namespace brindlet::sample
