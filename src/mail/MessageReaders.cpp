#include "mail/MessageReaders.h"

namespace brindlet {

MessageReaders::MessageReaders(int readers)
    : crew_(readers), desks_(static_cast<std::size_t>(crew_.workers())) {
    // Never cleared, as most of a buffer stays unused.
    for (Desk& desk : desks_)
        desk.buffer = std::make_unique_for_overwrite<char[]>(MailStore::bytesRead);
}

std::vector<MailStore::Parsed> MessageReaders::parse(std::span<const std::int64_t> ids,
                                                     const MessagePaths& paths,
                                                     std::int64_t limit) {
    std::vector<MailStore::Parsed> parsed(ids.size());
    crew_.forEach(ids.size(), [&](int worker, std::size_t index) {
        Desk& desk = desks_[static_cast<std::size_t>(worker)];
        if (paths.find(ids[index], desk.path))
            parsed[index] = MailStore::parseMessageFile(desk.path, limit,
                                                        {desk.buffer.get(), MailStore::bytesRead});
    });
    return parsed;
}

}  // namespace brindlet
