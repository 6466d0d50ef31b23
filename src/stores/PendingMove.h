#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Date.h"

namespace brindlet {

class JsonReader;
class JsonWriter;

/// What a move that is not over has still to do. The field names are the keys in the file.
struct PendingMove {
    /// A message to move.
    struct Item {
        /// The message's number in the mail index. It changes when the message moves.
        std::int64_t id = 0;
        /// Without angle brackets.
        std::string messageID;

        friend bool operator==(const Item&, const Item&) = default;
    };

    /// The account's address.
    std::string account;
    std::string source;
    std::string destination;
    /// The source as the person knows it.
    std::string folderLabel;
    std::vector<Item> remaining;
    /// How many have been moved so far.
    std::int64_t done = 0;
    Date started;

    friend bool operator==(const PendingMove&, const PendingMove&) = default;

    void write(JsonWriter& out) const;
    static PendingMove read(JsonReader& in);
};

}  // namespace brindlet
