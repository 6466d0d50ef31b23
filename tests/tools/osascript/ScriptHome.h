#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ScriptChild.h"
#include "doubles/Doubles.h"
#include "sample/HandmadeHome.h"

namespace brindlet::osascript {

/// A home with three accounts, and the program's scripts run over it by the stand-in.
///
/// "Notes" has no address, and one mailbox, "Old". "Work" has the addresses Me@x.example and
/// alias@x.example, 25 messages m1@h to m25@h in INBOX, the newest last, old@h in Junk, and the
/// nested mailboxes "Projects" and "Projects/Harbour". "Gmail" has the address me@gmail.example;
/// g1@h to g5@h lie in All Mail with the label INBOX; "Receipts" is an empty label.
class ScriptHome {
  public:
    ScriptHome();

    using Rows = std::vector<std::pair<std::int64_t, std::string>>;

    /// Writes what `settings` of the home say by now.
    void finish();
    sample::MailSettings::Behaviour& behaviour() { return home.settings.behaviour; }

    /// Rows for a script, of the first so many messages of Work's INBOX.
    Rows rows(int count) const;
    /// What stands in a mailbox by now, newest first.
    std::vector<std::string> idsIn(std::size_t account, const std::string& path) const;
    std::size_t countIn(std::size_t account, const std::string& path) const {
        return idsIn(account, path).size();
    }
    /// What is wrong between the index and the files: rows without their file in their mailbox's
    /// folder or with another's, files without a row. Empty when all is well.
    std::string disagreement() const;

    struct Bulk {
        std::string address = "me@x.example";
        std::string destination = "Junk";
        std::string source = "INBOX";
        std::string labelOnly = "0";
        /// Instead of the lines that the rows make.
        std::string idFile = {};
    };
    struct BulkOutcome {
        ScriptOutcome run;
        std::string progress;
        /// The lines of the done file.
        std::vector<std::string> done;
    };
    BulkOutcome bulk(const Rows& rows, const Bulk& with);
    BulkOutcome bulk(const Rows& rows) { return bulk(rows, Bulk()); }
    std::vector<std::string> bulkArguments(const Rows& rows, const Bulk& with);
    BulkOutcome bulkOutcome(ScriptOutcome run) const;

    struct Menu {
        std::string address = "me@x.example";
        std::string source = "INBOX";
        std::string destination = "Junk";
        int most = 200;
    };
    ScriptOutcome menu(const std::vector<std::string>& ids, const Menu& with);
    ScriptOutcome menu(const std::vector<std::string>& ids) { return menu(ids, Menu()); }

    ScriptOutcome listing(const std::string& script);
    ScriptOutcome script(const std::string& text, const std::vector<std::string>& arguments);

    static constexpr std::size_t notes = 0, work = 1, gmail = 2;
    doubles::TemporaryDirectories directories;
    sample::HandmadeHome home;
    std::vector<std::int64_t> inbox;
    std::vector<std::int64_t> gmailRows;
};

}  // namespace brindlet::osascript
