#pragma once

#include <cstdint>
#include <string>

#include "platform/Locale.h"

/// The words of a move's phases and of how it ended.
namespace brindlet::moves {

inline constexpr const char* matching = "Matching this scan to its account - a few seconds.";
inline constexpr const char* finding = "Finding them in Mail";
inline constexpr const char* filing = "Filing through Gmail";
inline constexpr const char* resuming = "Picking up where it stopped";
inline constexpr const char* puttingBack = "Putting them back";
inline constexpr const char* mailClosed = "Mail isn't open. Open Mail, then try again.";

inline std::string findingIn(const std::string& source) {
    return "Finding them in " + source;
}

inline std::string found(std::int64_t done, std::int64_t total, const Locale& locale) {
    return "Finding " + locale.grouped(done) + " / " + locale.grouped(total);
}

inline std::string movingInto(const std::string& destination) {
    return "Moving into " + destination;
}

inline std::string puttingBackInto(const std::string& folder) {
    return "Putting back into " + folder;
}

inline std::string moved(std::int64_t count, const std::string& destination, const Locale& locale) {
    return "Moved " + locale.grouped(count) + " into " + destination;
}

inline std::string movedPart(std::int64_t count, std::int64_t of, const Locale& locale) {
    return "Moved " + locale.grouped(count) + " of " + locale.grouped(of) +
           " - the rest are still listed";
}

inline std::string movedBeforeStop(std::int64_t count, const Locale& locale) {
    return "Moved " + locale.grouped(count) + " before it stopped";
}

inline std::string noneFound(const std::string& source) {
    return "Mail didn't find any of them in " + source + ".";
}

inline std::string someLeft(std::int64_t count, std::int64_t left, const Locale& locale) {
    return "Moved " + locale.grouped(count) + ", " + locale.grouped(left) + " still to go";
}

inline std::string finished(std::int64_t count, const Locale& locale) {
    return "Finished - " + locale.grouped(count) + " more moved";
}

inline std::string putBack(std::int64_t count, const std::string& folder, const Locale& locale) {
    return "Put " + locale.grouped(count) + " back in " + folder;
}

inline std::string accountGone(const std::string& account) {
    return "Can't find " + account + " in Mail any more.";
}

}  // namespace brindlet::moves
