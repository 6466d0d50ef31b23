#include "ScriptHome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "base/Files.h"
#include "mail/PercentEncoding.h"
#include "sample/MailIndex.h"
#include "sample/MailLayout.h"

namespace brindlet::osascript {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        if (end > from) lines.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return lines;
}

}  // namespace

ScriptHome::ScriptHome() : home(directories.home()) {
    home.addAccount("Notes", "");
    home.addAccount("Work", "Me@x.example");
    home.settings.accounts[work].addresses.emplace_back("alias@x.example");
    home.addAccount("Gmail", "me@gmail.example");
    home.settings.accounts[gmail].gmail = true;

    home.addMailbox(notes, "Old");
    const std::int64_t in = home.addMailbox(work, "INBOX");
    const std::int64_t junk = home.addMailbox(work, "Junk");
    home.addMailbox(work, "Projects");
    home.addMailbox(work, "Projects/Harbour");
    for (int i = 1; i <= 25; ++i)
        inbox.push_back(
            home.addMessage({.mailbox = in, .messageId = 'm' + std::to_string(i) + "@h"}));
    home.addMessage({.mailbox = junk, .messageId = "old@h"});

    const std::int64_t all = home.addMailbox(gmail, "[Gmail]/All Mail");
    const std::int64_t label = home.addMailbox(gmail, "INBOX");
    home.addMailbox(gmail, "Receipts");
    home.addMailbox(gmail, "[Gmail]/Spam");
    for (int i = 1; i <= 5; ++i)
        gmailRows.push_back(home.addMessage(
            {.mailbox = all, .messageId = 'g' + std::to_string(i) + "@h", .labels = {label}}));
}

void ScriptHome::finish() {
    ASSERT_TRUE(home.finish());
}

ScriptHome::Rows ScriptHome::rows(int count) const {
    Rows rows;
    for (int i = 0; i < count; ++i)
        rows.emplace_back(inbox[static_cast<std::size_t>(i)], 'm' + std::to_string(i + 1) + "@h");
    return rows;
}

std::vector<std::string> ScriptHome::idsIn(std::size_t account, const std::string& path) const {
    const auto index = sample::MailIndex::open(home.indexPath());
    const auto& owner = home.settings.accounts[account];
    const std::string url = sample::mailboxUrl(owner.scheme, owner.id, path);
    std::vector<std::string> ids;
    for (const auto& mailbox : index->mailboxes()) {
        if (mailbox.url != url) continue;
        const std::vector<std::int64_t> rows = index->messages(mailbox.row);
        for (const std::int64_t row : rows) ids.push_back(index->messageId(row).value_or("none"));
    }
    return ids;
}

std::string ScriptHome::disagreement() const {
    const auto index = sample::MailIndex::open(home.indexPath());
    std::set<std::string> expected;
    std::string wrong;
    for (const auto& mailbox : index->mailboxes()) {
        const std::size_t slash = mailbox.url.find('/', mailbox.url.find("://") + 3);
        const std::string account = mailbox.url.substr(slash - 36, 36);
        const std::string path = percentDecoded(mailbox.url.substr(slash + 1)).value_or("");
        const std::vector<std::int64_t> rows = index->messages(mailbox.row);
        for (const std::int64_t row : rows) {
            if (index->filedIn(row) != mailbox.row) continue;
            const std::string file =
                home.dataRoot() + '/' +
                sample::messageDirectory(sample::mailboxDataDirectory(account, path), row) + '/' +
                sample::messageFileName(row, sample::FileKind::whole);
            const auto text = files::read(file);
            const std::string id = index->messageId(row).value_or("");
            if (!text)
                wrong += "no " + file + "; ";
            else if (!id.empty() && text->find("Message-ID: <" + id + ">\n") == std::string::npos)
                wrong += "another message than " + id + " in " + file + "; ";
            expected.insert(file);
        }
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.dataRoot()))
        if (entry.path().extension() == ".emlx" && !expected.contains(entry.path().string()))
            wrong += "no row for " + entry.path().string() + "; ";
    return wrong;
}

std::vector<std::string> ScriptHome::bulkArguments(const Rows& rows, const Bulk& with) {
    std::string lines = with.idFile;
    if (lines.empty())
        for (const auto& [row, id] : rows)
            lines += (lines.empty() ? "" : "\n") + std::to_string(row) + '\t' + id;
    const std::string folder = directories.temporary();
    files::write(folder + "/ids", lines);
    files::write(folder + "/progress", "scan|0|0");
    files::write(folder + "/done", "");
    return {"-",
            with.address,
            with.destination,
            with.source,
            folder + "/ids",
            folder + "/progress",
            folder + "/done",
            with.labelOnly};
}

ScriptHome::BulkOutcome ScriptHome::bulkOutcome(ScriptOutcome run) const {
    const std::string folder = directories.temporary();
    return {std::move(run), files::read(folder + "/progress").value_or("none"),
            linesOf(files::read(folder + "/done").value_or("none"))};
}

ScriptHome::BulkOutcome ScriptHome::bulk(const Rows& rows, const Bulk& with) {
    ScriptChild child(directories.temporary(), home.home(), bulkArguments(rows, with),
                      moveScript("bulk-move.applescript"));
    return bulkOutcome(child.wait());
}

ScriptOutcome ScriptHome::menu(const std::vector<std::string>& ids, const Menu& with) {
    std::vector<std::string> sorted = ids;
    std::sort(sorted.begin(), sorted.end());
    std::string text = "\n";
    for (const std::string& id : sorted) text += id + '\n';
    const std::string file = directories.temporary() + "/wanted";
    files::write(file, text);
    ScriptChild child(
        directories.temporary(), home.home(),
        {"-", with.address, with.source, with.destination, file, std::to_string(with.most)},
        moveScript("menu-move.applescript"));
    return child.wait();
}

ScriptOutcome ScriptHome::listing(const std::string& script) {
    return ScriptChild(directories.temporary(), home.home(), {"-e", listingScript(script)}, "")
        .wait();
}

ScriptOutcome ScriptHome::script(const std::string& text,
                                 const std::vector<std::string>& arguments) {
    std::vector<std::string> all{"-"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return ScriptChild(directories.temporary(), home.home(), all, text).wait();
}

}  // namespace brindlet::osascript
