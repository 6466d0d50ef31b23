#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Date.h"
#include "base/Observable.h"
#include "platform/Services.h"

namespace brindlet {

class History;

/// Every message that was ever decided, by Message-ID, in "seen.json"; so that the next scan can
/// skip it. Grows without end on purpose. Main thread.
class Seen : public Observable {
  public:
    struct Entry {
        bool junk = false;
        Date when;
        std::optional<std::string> account;
        /// The source folder's name, or the destination once it was moved.
        std::optional<std::string> folder;

        friend bool operator==(const Entry&, const Entry&) = default;
    };
    /// The entries as they stood at one moment, to be asked from any thread.
    class Keys;

    explicit Seen(Services services);
    ~Seen();

    std::optional<Entry> find(std::string_view messageID) const;
    std::size_t size() const;
    /// All entries, in no order; for tests and tools.
    std::vector<std::pair<std::string, Entry>> entries() const;
    /// Counts assignments of the entries.
    std::uint64_t revision() const;

    /// Whether a scan leaves out what was decided. Stored in the user default "skipSeen".
    bool skipSeen() const;
    void setSkipSeen(bool skip);

    void mark(const std::vector<std::pair<std::string, bool>>& items,
              const std::optional<std::string>& account, const std::optional<std::string>& folder);
    void mark(const std::vector<std::string>& ids, bool junk,
              const std::optional<std::string>& account, const std::optional<std::string>& folder);
    std::int64_t junkCount(const std::string& account, const std::string& folder) const;
    std::int64_t count(const std::string& account, const std::string& folder) const;
    std::int64_t count(const std::string& account) const;
    void clear();
    /// Back-fills account and folder of old entries from the history; once a start.
    void attribute(const History& history);

    /// A snapshot for a scan; costs little.
    std::shared_ptr<const Keys> keys() const;

    class Keys {
      public:
        virtual ~Keys() = default;
        virtual bool contains(std::string_view messageID) const = 0;
        virtual bool containsJunk(std::string_view messageID) const = 0;
        virtual std::size_t junkSize() const = 0;
    };

  private:
    struct Table;
    void load();
    void save() const;
    Services services_;
    std::shared_ptr<Table> table_;
    std::uint64_t revision_ = 0;
    Published<bool> skipSeen_;
};

}  // namespace brindlet
