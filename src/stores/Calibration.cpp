#include "stores/Calibration.h"

#include <algorithm>
#include <utility>

#include "base/Files.h"
#include "base/Json.h"
#include "stores/StoreFile.h"

namespace brindlet {
namespace {

constexpr std::int64_t leastCorrections = 12;
constexpr std::size_t leastSenders = 6;
constexpr double leastShare = 0.8;

/// Never flips to junk, however often it is corrected that way.
bool isProtected(Category category) {
    switch (category) {
        case Category::cannotTell:
        case Category::personalMessageOrReminder:
        case Category::securityCodeOrSignInAlert:
        case Category::receiptOrOrderOrShipping:
        case Category::billOrPayment:
            return true;
        default:
            return false;
    }
}

std::int64_t total(const Calibration::Tally& tally) {
    return saturatingSum(tally.toKeep, tally.toJunk);
}

void writeStrings(JsonWriter& out, std::string_view key, const std::vector<std::string>& strings) {
    out.key(key);
    out.beginArray();
    for (const auto& string : strings) out.value(string);
    out.endArray();
}

std::vector<std::string> readStrings(JsonReader& in) {
    std::vector<std::string> strings;
    if (!in.takeNull()) in.array([&] { strings.push_back(in.string()); });
    return strings;
}

Calibration::Tally readTally(JsonReader& in) {
    Calibration::Tally tally;
    const auto count = [&] { return in.takeNull() ? 0 : in.integer(); };
    in.object([&](std::string_view key) {
        if (key == "toKeep")
            tally.toKeep = count();
        else if (key == "toJunk")
            tally.toJunk = count();
        else if (key == "keepSenders")
            tally.keepSenders = readStrings(in);
        else if (key == "junkSenders")
            tally.junkSenders = readStrings(in);
    });
    return tally;
}

void count(std::int64_t& corrections, std::vector<std::string>& senders, std::string_view sender) {
    corrections = saturatingSum(corrections, 1);
    if (!sender.empty() && std::find(senders.begin(), senders.end(), sender) == senders.end())
        senders.emplace_back(sender);
}

}  // namespace

Calibration::Calibration(Services services) : path_(storeFile(services, "calibration.json")) {
    load();
}

void Calibration::load() {
    auto text = files::read(path_);
    if (!text) return;
    JsonReader in(*std::move(text));
    std::map<std::string, Tally> tallies;
    std::vector<std::string> mutedCategories;
    in.object([&](std::string_view key) {
        if (key == "tallies") {
            tallies.clear();
            if (in.takeNull()) return;
            in.object([&](std::string_view category) {
                std::string name(category);
                tallies[std::move(name)] = readTally(in);
            });
        } else if (key == "muted") {
            mutedCategories = readStrings(in);
        }
    });
    if (!in.finish()) {
        moveUnreadableAside(path_);
        return;
    }
    byCategory.set(std::move(tallies));
    muted.set({mutedCategories.begin(), mutedCategories.end()});
}

void Calibration::save() const {
    JsonWriter out;
    out.beginObject();
    out.key("tallies");
    out.beginObject();
    for (const auto& [category, tally] : *byCategory) {
        out.key(category);
        out.beginObject();
        out.member("toKeep", tally.toKeep);
        out.member("toJunk", tally.toJunk);
        writeStrings(out, "keepSenders", tally.keepSenders);
        writeStrings(out, "junkSenders", tally.junkSenders);
        out.endObject();
    }
    out.endObject();
    writeStrings(out, "muted", {muted->begin(), muted->end()});
    out.endObject();
    files::write(path_, std::move(out).text());
}

void Calibration::record(Category category, Rule::Verdict verdict, std::string_view sender) {
    if (verdict == Rule::Verdict::junk && isProtected(category)) return;
    byCategory.mutate([&](auto& tallies) {
        Tally& tally = tallies[std::string(rawValue(category))];
        if (verdict == Rule::Verdict::keep)
            count(tally.toKeep, tally.keepSenders, sender);
        else
            count(tally.toJunk, tally.junkSenders, sender);
    });
    save();
}

std::optional<Rule::Verdict> Calibration::flip(Category category) const {
    const std::string key(rawValue(category));
    if (muted->contains(key)) return std::nullopt;
    const auto found = byCategory->find(key);
    if (found == byCategory->end()) return std::nullopt;
    const Tally& tally = found->second;
    const auto corrections = total(tally);
    if (corrections < leastCorrections) return std::nullopt;
    const double keepShare = static_cast<double>(tally.toKeep) / static_cast<double>(corrections);
    if (keepShare >= leastShare && tally.keepSenders.size() >= leastSenders)
        return Rule::Verdict::keep;
    // A file may hold corrections to junk even for a protected category.
    if (1 - keepShare >= leastShare && tally.junkSenders.size() >= leastSenders &&
        !isProtected(category))
        return Rule::Verdict::junk;
    return std::nullopt;
}

std::vector<Calibration::Row> Calibration::rows() const {
    std::vector<Row> rows;
    for (const Category category : allCases<Category>())
        if (const auto verdict = flip(category))
            rows.push_back({category, *verdict, byCategory->at(std::string(rawValue(category)))});
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& a, const Row& b) { return total(a.tally) > total(b.tally); });
    return rows;
}

std::map<Category, Rule::Verdict> Calibration::flips() const {
    std::map<Category, Rule::Verdict> flips;
    for (const Category category : allCases<Category>())
        if (const auto verdict = flip(category)) flips.emplace(category, *verdict);
    return flips;
}

void Calibration::mute(Category category) {
    muted.mutate([&](auto& categories) { categories.emplace(rawValue(category)); });
    save();
}

void Calibration::forget(Category category) {
    const std::string key(rawValue(category));
    byCategory.mutate([&](auto& tallies) { tallies.erase(key); });
    muted.mutate([&](auto& categories) { categories.erase(key); });
    save();
}

}  // namespace brindlet
