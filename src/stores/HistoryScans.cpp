#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>

#include "base/Files.h"
#include "base/Json.h"
#include "stores/History.h"

namespace brindlet {
namespace {

constexpr std::size_t mostScanFiles = 20;

/// Whole Unix seconds, cut towards zero. A date that no clock shows can come from a file.
std::int64_t wholeUnixSeconds(Date date) {
    constexpr double limit = 9223372036854775808.0;  // 2 to the 63rd
    const double seconds = std::trunc(date.unix());
    if (seconds >= limit) return std::numeric_limits<std::int64_t>::max();
    if (seconds < -limit) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(seconds);
}

/// The names are Unix seconds of one width, so the greatest are the newest. Whatever else lies in
/// the folder counts like a scan.
void keepNewest(const std::string& directory) {
    auto names = files::list(directory).value_or(std::vector<std::string>());
    if (names.size() <= mostScanFiles) return;
    std::sort(names.begin(), names.end(), std::greater<>());
    for (std::size_t i = mostScanFiles; i < names.size(); ++i)
        files::remove(directory + "/" + names[i]);
}

}  // namespace

std::string History::scanPath(Date started) const {
    return scansDirectory_ + "/" + std::to_string(wholeUnixSeconds(started)) + ".json";
}

void History::removeScan(const ScanRecord& record) const {
    files::remove(scanPath(record.started));
}

void History::writeScan(const std::vector<ScanRecord::Saved>& saved, Date started) const {
    files::createDirectories(scansDirectory_);
    {
        files::Writer file(scanPath(started));
        JsonWriter out(file);
        out.beginArray();
        for (const auto& message : saved) message.write(out);
        out.endArray();
        out.flush();
        file.finish();
    }
    keepNewest(scansDirectory_);
}

bool History::hasScan(Date started) const {
    return files::exists(scanPath(started));
}

std::optional<std::vector<ScanRecord::Saved>> History::readScan(Date started) const {
    auto text = files::read(scanPath(started));
    if (!text) return std::nullopt;
    JsonReader in(*std::move(text));
    std::vector<ScanRecord::Saved> saved;
    in.array([&] { saved.push_back(ScanRecord::Saved::read(in)); });
    if (!in.finish()) return std::nullopt;
    return saved;
}

void History::stampApproved(const Ids& considered, const Ids& approved, Date started) const {
    auto saved = readScan(started);
    if (!saved) return;
    for (auto& message : *saved)
        if (considered.contains(message.n)) message.approved = approved.contains(message.n);
    writeScan(*saved, started);
}

}  // namespace brindlet
