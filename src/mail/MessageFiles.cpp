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

/// Room for the part of a file that is read; never cleared, as most of it stays unused.
std::unique_ptr<char[]> makeBuffer() {
    return std::make_unique_for_overwrite<char[]>(MailStore::bytesRead);
}

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
    const auto buffer = makeBuffer();
    return parseMessageFile(path, limit, {buffer.get(), bytesRead});
}

std::vector<MailStore::Parsed> MailStore::parseMessageFiles(std::span<const std::int64_t> ids,
                                                            const MessagePaths& paths,
                                                            std::int64_t limit, WorkerCrew& crew) {
    struct Desk {
        std::string path;
        std::unique_ptr<char[]> buffer = makeBuffer();
    };
    std::vector<Desk> desks(static_cast<std::size_t>(crew.workers()));
    std::vector<Parsed> parsed(ids.size());
    crew.forEach(ids.size(), [&](int worker, std::size_t index) {
        Desk& desk = desks[static_cast<std::size_t>(worker)];
        if (paths.find(ids[index], desk.path))
            parsed[index] = parseMessageFile(desk.path, limit, {desk.buffer.get(), bytesRead});
    });
    return parsed;
}

}  // namespace brindlet
