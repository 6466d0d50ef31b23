#include "stores/Seen.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <utility>

#include "base/Files.h"
#include "platform/Clock.h"
#include "platform/UserDefaults.h"
#include "stores/History.h"
#include "stores/SeenAhead.h"
#include "stores/SeenFile.h"
#include "stores/SeenTable.h"
#include "stores/StoreFile.h"

namespace brindlet {
namespace {

constexpr std::string_view skipSeenKey = "skipSeen";

/// `table` gives the entries as they stand, `changing` the same to be changed.
void bringUpToDate(const std::function<const SeenTable&()>& table,
                   const std::function<SeenTable&()>& changing, const History& history, Date now) {
    const auto change = [&](std::string_view id, bool junk, Date when, const ScanRecord& record,
                            const std::string& folder) {
        SeenTable& entries = changing();
        entries.set(id, junk, when, entries.place(record.account, folder));
    };
    const auto folderOf = [&](const auto& row) -> const std::optional<std::string>& {
        return table().places()[row.place].folder;
    };

    // The newest scan that knows a message settles where it was decided.
    for (const ScanRecord& record : *history.records) {
        if (!table().anyLacksFolder()) break;
        const auto scan = history.readScan(record.started);
        if (!scan) continue;
        for (const auto& message : *scan) {
            const auto* row = table().find(message.messageID.value_or(""));
            if (row && !folderOf(*row))
                change(*message.messageID, row->junk, row->when, record, record.folder);
        }
    }
    // Here the oldest has the last word: of two records that moved one message it overrules the
    // newer, at every start again.
    for (const ScanRecord& record : *history.records) {
        if (!record.movedTo) continue;
        for (const auto& item : record.moved) {
            if (item.messageID.empty()) continue;
            const auto* row = table().find(item.messageID);
            if (row && row->junk && folderOf(*row) == record.movedTo) continue;
            change(item.messageID, true, row ? row->when : now, record, *record.movedTo);
        }
    }
}

}  // namespace

/// The table with the number of snapshots that read it. While there are any, it is not changed: the
/// store goes on with a copy.
struct Seen::Shared {
    explicit Shared(std::shared_ptr<SeenTable> entries) : table(std::move(entries)) {}

    const std::shared_ptr<SeenTable> table;
    std::atomic<int> readers = 0;
};

Seen::Keys::Keys(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {
    ++shared_->readers;
}

// The store may change the table once it sees this, so all our reading must have happened before.
Seen::Keys::~Keys() {
    shared_->readers.fetch_sub(1, std::memory_order_release);
}

bool Seen::Keys::contains(std::string_view messageID) const {
    return shared_->table->find(messageID) != nullptr;
}

bool Seen::Keys::containsJunk(std::string_view messageID) const {
    const auto* row = shared_->table->find(messageID);
    return row && row->junk;
}

std::size_t Seen::Keys::junkSize() const {
    return shared_->table->junkSize();
}

Seen::Seen(Services services, SeenAhead* ahead)
    : services_(services),
      path_(storeFile(services, "seen.json")),
      ahead_(ahead),
      skipSeen_(*this, services.defaults.boolean(skipSeenKey).value_or(true)) {
    if (ahead) return;
    std::shared_ptr<SeenTable> table;
    if (auto text = files::read(path_)) table = decodedSeen(*std::move(text));
    shared_ = std::make_shared<Shared>(table ? table : std::make_shared<SeenTable>());
}

Seen::~Seen() = default;

std::optional<Seen::Entry> Seen::find(std::string_view messageID) const {
    const SeenTable& table = *shared()->table;
    const auto* row = table.find(messageID);
    if (!row) return std::nullopt;
    const auto& place = table.places()[row->place];
    return Entry{row->junk, row->when, place.account, place.folder};
}

std::size_t Seen::size() const {
    return shared()->table->rows().size();
}

std::vector<std::pair<std::string, Seen::Entry>> Seen::entries() const {
    const SeenTable& table = *shared()->table;
    std::vector<std::pair<std::string, Entry>> entries;
    entries.reserve(table.rows().size());
    for (const auto& row : table.rows()) {
        const auto& place = table.places()[row.place];
        entries.emplace_back(row.key, Entry{row.junk, row.when, place.account, place.folder});
    }
    return entries;
}

void Seen::setSkipSeen(bool skip) {
    skipSeen_.set(skip);
    services_.defaults.setBoolean(skipSeenKey, skip);
}

const std::shared_ptr<Seen::Shared>& Seen::shared() const {
    if (!ahead_) return shared_;
    auto table = std::exchange(ahead_, nullptr)->take();
    if (!table) table = std::make_shared<SeenTable>();
    bool changed = false;
    if (history_)
        bringUpToDate([&]() -> const SeenTable& { return *table; },
                      [&]() -> SeenTable& {
                          changed = true;
                          return *table;
                      },
                      *history_, services_.clock.now());
    shared_ = std::make_shared<Shared>(std::move(table));
    if (changed) save();
    return shared_;
}

/// The table, of which no snapshot reads any more. Call it anew for every change.
SeenTable& Seen::writable() {
    if (shared()->readers.load(std::memory_order_acquire) > 0)
        shared_ = std::make_shared<Shared>(std::make_shared<SeenTable>(*shared()->table));
    return *shared()->table;
}

void Seen::mark(const std::vector<std::pair<std::string, bool>>& items,
                const std::optional<std::string>& account,
                const std::optional<std::string>& folder) {
    const auto hasID = [](const auto& item) { return !item.first.empty(); };
    if (std::any_of(items.begin(), items.end(), hasID)) {
        const Date now = services_.clock.now();
        willChange();
        SeenTable& table = writable();
        const auto place = table.place(account, folder);
        for (const auto& item : items)
            if (hasID(item)) table.set(item.first, item.second, now, place);
        ++revision_;
    }
    save();
}

void Seen::mark(const std::vector<std::string>& ids, bool junk,
                const std::optional<std::string>& account,
                const std::optional<std::string>& folder) {
    std::vector<std::pair<std::string, bool>> items;
    items.reserve(ids.size());
    for (const auto& id : ids) items.emplace_back(id, junk);
    mark(items, account, folder);
}

std::int64_t Seen::junkCount(const std::string& account, const std::string& folder) const {
    if (account.empty() || folder.empty()) return 0;
    const auto* place = shared()->table->findPlace(account, folder);
    return place ? place->junk : 0;
}

std::int64_t Seen::count(const std::string& account, const std::string& folder) const {
    if (account.empty() || folder.empty()) return 0;
    const auto* place = shared()->table->findPlace(account, folder);
    return place ? place->entries : 0;
}

std::int64_t Seen::count(const std::string& account) const {
    if (account.empty()) return 0;
    std::int64_t entries = 0;
    for (const auto& place : shared()->table->places())
        if (place.account == account && place.folder) entries += place.entries;
    return entries;
}

void Seen::clear() {
    willChange();
    ahead_ = nullptr;
    shared_ = std::make_shared<Shared>(std::make_shared<SeenTable>());
    ++revision_;
    save();
}

void Seen::attribute(const History& history) {
    if (ahead_) {
        history_ = &history;
        return;
    }
    bool changed = false;
    const auto changing = [&]() -> SeenTable& {
        if (!std::exchange(changed, true)) willChange();
        return writable();
    };
    bringUpToDate([this]() -> const SeenTable& { return *shared_->table; }, changing, history,
                  services_.clock.now());
    if (!changed) return;
    ++revision_;
    save();
}

std::shared_ptr<const Seen::Keys> Seen::keys() const {
    return std::shared_ptr<const Keys>(new Keys(shared()));
}

void Seen::save() const {
    writeSeen(*shared()->table, path_);
}

}  // namespace brindlet
