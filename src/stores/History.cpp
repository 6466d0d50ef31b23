#include "stores/History.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/Files.h"
#include "base/Json.h"
#include "platform/Clock.h"
#include "stores/StoreFile.h"

namespace brindlet {
namespace {

constexpr std::size_t mostRecords = 100;
constexpr double secondsInBin = History::daysInBin * 86400.0;

using Records = std::vector<ScanRecord>;

Date binDate(const ScanRecord& record) {
    return record.deletedAt.value_or(record.started);
}

void sortByStart(Records& records) {
    std::stable_sort(records.begin(), records.end(), [](const ScanRecord& a, const ScanRecord& b) {
        return a.started > b.started;
    });
}

void sortByDeletion(Records& records) {
    std::stable_sort(records.begin(), records.end(), [](const ScanRecord& a, const ScanRecord& b) {
        return binDate(a) > binDate(b);
    });
}

std::optional<Records> decoded(std::string text) {
    JsonReader in(std::move(text));
    Records records;
    in.array([&] { records.push_back(ScanRecord::read(in)); });
    if (!in.finish()) return std::nullopt;
    return records;
}

void write(const std::string& path, const Records& records) {
    JsonWriter out;
    out.beginArray();
    for (const ScanRecord& record : records) record.write(out);
    out.endArray();
    files::write(path, std::move(out).text());
}

/// Takes the first record with the id out of the list.
std::optional<ScanRecord> take(Published<Records>& records, const std::string& id) {
    const auto found = std::find_if(records->begin(), records->end(),
                                    [&](const ScanRecord& record) { return record.id() == id; });
    if (found == records->end()) return std::nullopt;
    const auto index = found - records->begin();
    ScanRecord record = *found;
    records.mutate([&](Records& list) { list.erase(list.begin() + index); });
    return record;
}

void putInFront(Published<Records>& records, const ScanRecord& record) {
    records.mutate([&](Records& list) { list.insert(list.begin(), record); });
}

}  // namespace

History::History(Services services)
    : services_(services),
      path_(storeFile(services, "history.json")),
      binPath_(storeFile(services, "history-deleted.json")),
      scansDirectory_(storeFile(services, "scans")) {
    load();
}

void History::load() {
    if (auto text = files::read(path_)) {
        auto read = decoded(*std::move(text));
        if (!read) {
            moveUnreadableAside(path_);
            loaded_ = true;
            return;
        }
        sortByStart(*read);
        records.set(*std::move(read));
    }
    loaded_ = true;
    if (auto text = files::read(binPath_)) {
        auto read = decoded(*std::move(text));
        if (!read) return;
        sortByDeletion(*read);
        deleted.set(*std::move(read));
    }
    expire();
}

void History::expire() {
    const Date now = services_.clock.now();
    const Date cutOff = now - secondsInBin;
    std::set<std::string> expired;
    for (const ScanRecord& record : *deleted)
        if (record.deletedAt.value_or(now) < cutOff) {
            expired.insert(record.id());
            removeScan(record);
        }
    if (expired.empty()) return;
    deleted.mutate([&](Records& list) {
        std::erase_if(list, [&](const ScanRecord& r) { return expired.contains(r.id()); });
    });
    writeBin();
}

void History::save() {
    if (!loaded_) return;
    Records kept = *records;
    sortByStart(kept);
    if (kept.size() > mostRecords) kept.resize(mostRecords);
    records.set(std::move(kept));
    write(path_, *records);
    writeBin();
}

void History::writeBin() const {
    write(binPath_, *deleted);
}

void History::add(const ScanRecord& record) {
    putInFront(records, record);
    save();
}

void History::setMoved(const std::string& folder, const std::string& movedTo,
                       const std::vector<ScanRecord::Moved>& moved) {
    const auto found =
        std::find_if(records->begin(), records->end(),
                     [&](const ScanRecord& record) { return record.folder == folder; });
    if (found == records->end()) return;
    const auto index = static_cast<std::size_t>(found - records->begin());
    records.mutate([&](Records& list) {
        ScanRecord& record = list[index];
        record.movedTo = movedTo;
        std::unordered_set<std::string> known;
        for (const auto& item : record.moved) known.insert(item.messageID);
        for (const auto& item : moved)
            if (!known.contains(item.messageID)) record.moved.push_back(item);
    });
    save();
}

void History::deleteRecord(const ScanRecord& record) {
    auto taken = take(records, record.id());
    if (!taken) return;
    taken->deletedAt = services_.clock.now();
    putInFront(deleted, *taken);
    save();
}

void History::restore(const ScanRecord& record) {
    auto taken = take(deleted, record.id());
    if (!taken) return;
    taken->deletedAt.reset();
    putInFront(records, *taken);
    save();
}

void History::purge(const ScanRecord& record) {
    const auto id = record.id();
    deleted.mutate([&](Records& list) {
        std::erase_if(list, [&](const ScanRecord& other) { return other.id() == id; });
    });
    removeScan(record);
    writeBin();
}

void History::emptyBin() {
    for (const ScanRecord& record : *deleted) removeScan(record);
    deleted.set({});
    writeBin();
}

std::map<std::string, Date> History::lastScans() const {
    std::map<std::string, Date> latest;
    for (const ScanRecord& record : *records) {
        const auto key = record.account + "|" + record.folder;
        const auto [entry, added] = latest.emplace(key, record.started);
        if (!added) entry->second = std::max(entry->second, record.started);
    }
    return latest;
}

std::int64_t History::totalMoved() const {
    std::int64_t total = 0;
    for (const ScanRecord& record : *records) total += std::ssize(record.moved);
    return total;
}

}  // namespace brindlet
