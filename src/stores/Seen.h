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
class SeenAhead;
class SeenTable;

/// Every message that was ever decided, by Message-ID, in "seen.json"; so that the next scan can
/// skip it. Grows without end on purpose. Main thread, but for what `keys` hands out.
///
/// Every change is saved at once; a save that fails is not noticed. A call that changes several
/// entries is announced to observers once.
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
    class Keys;

    /// Loads the file; whatever is wrong with it leaves the list empty. What is being read of it
    /// ahead is taken when the list is first needed, so `ahead` lives as long.
    explicit Seen(Services services, SeenAhead* ahead = nullptr);
    ~Seen();

    std::optional<Entry> find(std::string_view messageID) const;
    std::size_t size() const;
    /// All entries, in no order; for tests and tools.
    std::vector<std::pair<std::string, Entry>> entries() const;
    /// Counts assignments of the entries.
    std::uint64_t revision() const { return revision_; }

    /// Whether a scan leaves out what was decided. Stored in the user default "skipSeen".
    bool skipSeen() const { return *skipSeen_; }
    void setSkipSeen(bool skip);

    /// Records decisions made now, over earlier ones; empty ids are left out. Saves whatever is
    /// given, also nothing.
    void mark(const std::vector<std::pair<std::string, bool>>& items,
              const std::optional<std::string>& account, const std::optional<std::string>& folder);
    void mark(const std::vector<std::string>& ids, bool junk,
              const std::optional<std::string>& account, const std::optional<std::string>& folder);

    /// How many entries name exactly this account, and this folder. 0 for an empty argument. An
    /// entry that lacks either name never counts. They cost nothing worth speaking of.
    std::int64_t junkCount(const std::string& account, const std::string& folder) const;
    std::int64_t count(const std::string& account, const std::string& folder) const;
    std::int64_t count(const std::string& account) const;

    void clear();

    /// Brings old entries up to date with the history: the account and folder of those that have no
    /// folder, from the scans' files; and everything that was moved as junk in its destination.
    /// Once a start, after both have loaded; for a list that is read ahead it happens as soon as that
    /// is taken, so that nobody meets it as it was. Saves only what changed.
    void attribute(const History& history);

    /// The entries as they stand now, for a scan. Costs nothing until the list changes while the
    /// snapshot lives; then the list is copied once.
    std::shared_ptr<const Keys> keys() const;

  private:
    struct Shared;
    const std::shared_ptr<Shared>& shared() const;
    SeenTable& writable();
    void save() const;
    Services services_;
    std::string path_;
    /// Null once it has been taken.
    mutable SeenAhead* ahead_;
    /// What the list is to be brought up to date with when it is taken.
    const History* history_ = nullptr;
    /// None before it is.
    mutable std::shared_ptr<Shared> shared_;
    std::uint64_t revision_ = 0;
    Published<bool> skipSeen_{*this};
};

/// The entries as they stood at one moment, to be asked from any thread. May outlive the store.
class Seen::Keys {
  public:
    ~Keys();
    Keys(const Keys&) = delete;
    Keys& operator=(const Keys&) = delete;

    bool contains(std::string_view messageID) const;
    /// True when it was decided as junk.
    bool containsJunk(std::string_view messageID) const;
    std::size_t junkSize() const;

  private:
    friend class Seen;
    explicit Keys(std::shared_ptr<Shared> shared);
    std::shared_ptr<Shared> shared_;
};

}  // namespace brindlet
