#include "app/demo/MailCounts.h"

#include <string_view>

#include "base/Files.h"
#include "sample/MailIndex.h"
#include "sample/MailLayout.h"

namespace brindlet::demo {
namespace {

class MessageFiles : public files::TreeVisitor {
  public:
    void directory(const std::string&) override {}
    void entry(std::string_view name) override {
        if (name.ends_with(".emlx")) ++count;
    }

    std::int64_t count = 0;
};

std::string dataRoot(const std::string& home) {
    return home + '/' + std::string(sample::dataRootInHome) + '/';
}

}  // namespace

std::int64_t messageFiles(const std::string& home, const std::string& account,
                          const std::string& mailbox) {
    MessageFiles found;
    files::walk(dataRoot(home) + sample::mailboxDataDirectory(account, mailbox), found);
    return found.count;
}

std::int64_t messagesListed(const std::string& home, const std::string& account,
                            const std::string& mailbox) {
    const auto index =
        sample::MailIndex::open(dataRoot(home) + std::string(sample::indexInDataRoot));
    if (!index) return 0;
    const auto url = sample::mailboxUrl("imap", account, mailbox);
    for (const auto& each : index->mailboxes())
        if (each.url == url) return static_cast<std::int64_t>(index->messages(each.row).size());
    return 0;
}

}  // namespace brindlet::demo
