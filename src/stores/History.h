#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/IdSet.h"
#include "base/Observable.h"
#include "platform/Services.h"
#include "stores/ScanRecord.h"

namespace brindlet {

/// One record a finished scan, newest first, in "history.json", with a bin in
/// "history-deleted.json" and the message-by-message detail in one file a scan below "scans". Main
/// thread, but for the four scan-file operations, which touch only that folder and may run on the
/// background queue that orders them: a stamp reads what the write before it left. Every change is
/// saved at once; a save that fails is not noticed.
class History : public Observable {
  public:
    /// How long a record stays in the bin.
    static constexpr std::int64_t daysInBin = 30;

    /// Loads both files and drops what has been in the bin for longer. A "history.json" that
    /// cannot be decoded is moved aside; the bin is then not read either, and the next save empties
    /// it.
    explicit History(Services services);

    Published<std::vector<ScanRecord>> records{*this};
    Published<std::vector<ScanRecord>> deleted{*this};

    /// Until the files have been read, nothing is saved over them.
    bool loaded() const { return loaded_; }

    void add(const ScanRecord& record);
    /// Sorts, keeps the newest 100 and writes both files.
    void save();
    /// Books what left a folder on its newest record; does nothing without one. Ids that the record
    /// has already are not added again.
    void setMoved(const std::string& folder, const std::string& movedTo,
                  const std::vector<ScanRecord::Moved>& moved);
    /// The four below find records by their id. `purge` and `emptyBin` remove the scans' files too.
    void deleteRecord(const ScanRecord& record);
    void restore(const ScanRecord& record);
    void purge(const ScanRecord& record);
    void emptyBin();
    /// From "<account>|<folder>" to the latest scan of it.
    std::map<std::string, Date> lastScans() const;
    std::int64_t totalMoved() const;

    /// Also drops all but the newest 20 files of the folder.
    void writeScan(const std::vector<ScanRecord::Saved>& saved, Date started) const;
    /// Whether the scan's file still stands; one look at the folder, nothing is read.
    bool hasScan(Date started) const;
    /// None when the file is missing or cannot be decoded.
    std::optional<std::vector<ScanRecord::Saved>> readScan(Date started) const;
    using Ids = IdSet;
    /// Sets `approved` of the messages in `considered`; does nothing when there is no such scan.
    void stampApproved(const Ids& considered, const Ids& approved, Date started) const;

  private:
    void load();
    void expire();
    void writeBin() const;
    std::string scanPath(Date started) const;
    void removeScan(const ScanRecord& record) const;
    Services services_;
    // Constant, so that the scan-file operations may read them on another thread.
    const std::string path_;
    const std::string binPath_;
    const std::string scansDirectory_;
    bool loaded_ = false;
};

}  // namespace brindlet
