#include "words/ListWords.h"

#include "platform/Locale.h"

namespace brindlet {

std::string matchLine(std::int64_t matches, const Locale& locale) {
    return locale.grouped(matches) + (matches == 1 ? " match" : " matches");
}

std::string messagesScrollLine(std::int64_t messages, const Locale& locale) {
    return locale.grouped(messages) + " messages \u00b7 scroll to see them all";
}

std::string sendersScrollLine(std::int64_t senders, const Locale& locale) {
    return locale.grouped(senders) + " senders \u00b7 scroll to see them all";
}

}  // namespace brindlet
