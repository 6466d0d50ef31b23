#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/Observable.h"
#include "platform/Services.h"
#include "stores/ScanRecord.h"

namespace brindlet {

/// One record a finished scan, newest first, in "history.json", with a bin in
/// "history-deleted.json" and the message-by-message detail in one file a scan below "scans". Main
/// thread, but for the three scan-file operations, which touch only that folder and may run on the
/// background queue that orders them.
class History : public Observable {
  public:
    explicit History(Services services);

    Published<std::vector<ScanRecord>> records{*this};
    Published<std::vector<ScanRecord>> deleted{*this};

    void add(const ScanRecord& record);
    void save();
    void setMoved(const std::string& folder, const std::string& movedTo,
                  const std::vector<ScanRecord::Moved>& moved);
    void deleteRecord(const ScanRecord& record);
    void restore(const ScanRecord& record);
    void purge(const ScanRecord& record);
    void emptyBin();
    /// From "<account>|<folder>" to the latest scan of it.
    std::map<std::string, Date> lastScans() const;
    std::int64_t totalMoved() const;

    void writeScan(const std::vector<ScanRecord::Saved>& saved, Date started) const;
    /// None when the file is missing or cannot be decoded.
    std::optional<std::vector<ScanRecord::Saved>> readScan(Date started) const;
    using Ids = std::unordered_set<std::int64_t>;
    void stampApproved(const Ids& considered, const Ids& approved, Date started) const;

  private:
    void load();
    void expire();
    void writeBin() const;
    std::string scanPath(Date started) const;
    Services services_;
    bool loaded_ = false;  // saving is refused until the load has run
};

}  // namespace brindlet
