#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "models/embedded/Concepts.h"

namespace brindlet {

/// Reads from a subject what happened and to what, by rules: words for deeds in eight languages,
/// one name each ("Versandt", "expédié" and "on its way" are all "shipped"), and what is left of
/// the subject without names, numbers, quoted titles and filling. Where the rules know no deed it
/// says nothing: a wrong guess would offer to throw away other mail. Immutable; any thread.
class EventReader {
  public:
    struct Event {
        std::string action;  ///< an English word, the same for the same deed
        std::string object;  ///< up to four of the subject's words, lower-cased; empty when general

        friend bool operator==(const Event&, const Event&) = default;
    };

    EventReader();

    std::optional<Event> read(std::string_view subject) const;

  private:
    Concepts actions_;
    Concepts things_;
    Concepts filling_;
};

}  // namespace brindlet
