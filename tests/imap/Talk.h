#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>

#include "doubles/Transcript.h"
#include "imap/Imap.h"

namespace brindlet {

using doubles::Transcript;
using doubles::TranscriptConnector;

inline void PrintTo(const Imap::Failure& failure, std::ostream* out) {
    *out << '"' << failure.description() << '"';
}

inline Imap::Failed connectionFailure(std::string text) {
    return Imap::Failure{Imap::Failure::Kind::connection, std::move(text)};
}
inline Imap::Failed protocolError(std::string text) {
    return Imap::Failure{Imap::Failure::Kind::protocolError, std::move(text)};
}

/// How an operation failed; none when it did not.
template <class T>
Imap::Failed failed(const Result<T, Imap::Failure>& result) {
    return result ? Imap::Failed() : Imap::Failed(result.failure());
}

/// A conversation up to and with the greeting.
inline Transcript greeted() {
    return Transcript().accepts().says("* OK Gimap ready\r\n");
}

inline Imap newImap(TranscriptConnector& connector) {
    return Imap(connector, "imap.example.org", 1993);
}

/// A client that has been greeted.
inline Imap connected(TranscriptConnector& connector) {
    Imap imap = newImap(connector);
    EXPECT_EQ(imap.connect(), std::nullopt);
    return imap;
}

}  // namespace brindlet
