#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"

namespace brindlet {

class JsonReader;
class JsonWriter;

/// What is kept of one finished scan. The field names are the keys in the file.
struct ScanRecord {
    /// A message that was moved out of the scan.
    struct Moved {
        std::string messageID;
        std::string sender;
        std::string subject;

        friend bool operator==(const Moved&, const Moved&) = default;
    };
    /// One message of a scan, in the scan's own file.
    struct Saved {
        std::int64_t n = 0;
        std::optional<std::string> messageID;
        std::string sender;
        std::string subject;
        /// Raw category.
        std::string category;
        bool isJunk = false;
        bool vetoed = false;
        /// The person's decision; readers accept its absence.
        std::optional<bool> approved;

        friend bool operator==(const Saved&, const Saved&) = default;
        void write(JsonWriter& out) const;
        static Saved read(JsonReader& in);
    };

    /// When the sorting began.
    Date started;
    std::string account;
    std::string folder;
    std::int64_t scanned = 0;
    std::int64_t junk = 0;
    std::int64_t protectedCount = 0;
    std::optional<std::string> movedTo;
    std::vector<Moved> moved;
    std::optional<Date> deletedAt;

    friend bool operator==(const ScanRecord&, const ScanRecord&) = default;

    std::string id() const;
    void write(JsonWriter& out) const;
    static ScanRecord read(JsonReader& in);
};

}  // namespace brindlet
