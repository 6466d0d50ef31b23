#pragma once

#include <cstddef>
#include <string_view>

namespace brindlet {

/// "ada park <ada.park@mail.test>", folded, in pieces; an address alone has no name. The pieces are
/// views into the text.
struct Sender {
    std::string_view name;
    std::string_view local;
    std::string_view domain;

    explicit Sender(std::string_view folded);

    /// How many words of the name stand in the address before the "@", as they do with persons.
    std::size_t echoes() const;
};

/// Whether a folded subject begins as replies and forwarded mail do.
bool isReply(std::string_view foldedSubject);

}  // namespace brindlet
