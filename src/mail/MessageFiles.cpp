#include <memory>

#include "base/Files.h"
#include "mail/MailStore.h"

namespace brindlet {
namespace {

class MessageFileCollector : public files::TreeVisitor {
  public:
    explicit MessageFileCollector(MessagePaths& paths) : paths_(paths) {}

    void directory(const std::string& path) override {
        path_ = path;
        number_.reset();
    }
    void entry(std::string_view name) override {
        if (!name.ends_with(".emlx")) return;
        // Most directories hold no messages and need no number.
        if (!number_) number_ = paths_.addDirectory(path_);
        paths_.add(*number_, name);
    }

  private:
    MessagePaths& paths_;
    std::string path_;
    std::optional<std::uint32_t> number_;
};

}  // namespace

MessagePaths MailStore::locateMessageFiles(std::string_view account) const {
    MessagePaths paths;
    if (const auto& root = mailRoot()) {
        MessageFileCollector collector(paths);
        files::walk(*root + '/' + std::string(account), collector);
    }
    return paths;
}

MailStore::Parsed MailStore::parseMessageFile(const std::string& path, std::int64_t limit,
                                              std::span<char> buffer) {
    const auto size = files::readPrefix(path, buffer);
    if (!size) return {};
    return parseMessage({buffer.data(), *size}, limit);
}

MailStore::Parsed MailStore::parseMessageFile(const std::string& path, std::int64_t limit) {
    const auto buffer = std::make_unique_for_overwrite<char[]>(bytesRead);
    return parseMessageFile(path, limit, {buffer.get(), bytesRead});
}

}  // namespace brindlet
