#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/Task.h"
#include "mail/MailStore.h"
#include "mail/MessagePaths.h"

namespace brindlet {

/// Parses message files side by side, run after run. Each reader keeps its buffer from one run to
/// the next. One thread at a time calls it, and is one of the readers.
class MessageReaders {
  public:
    explicit MessageReaders(int readers);

    /// One result per id, in the same order; a message without a file gives an empty one. `limit`
    /// is in characters of body.
    std::vector<MailStore::Parsed> parse(std::span<const std::int64_t> ids,
                                         const MessagePaths& paths, std::int64_t limit);

  private:
    struct Desk {
        std::string path;
        std::unique_ptr<char[]> buffer;
    };
    WorkerCrew crew_;
    std::vector<Desk> desks_;
};

}  // namespace brindlet
