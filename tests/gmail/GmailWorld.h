#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "doubles/MapKeyStore.h"
#include "doubles/Transcript.h"
#include "gmail/Gmail.h"

namespace brindlet {

using doubles::MapKeyStore;
using doubles::Transcript;
using doubles::TranscriptConnector;

inline constexpr const char* service = "app.brindlet.Brindlet.gmail";
inline constexpr const char* ann = "ann@home.example";
inline constexpr const char* password = "abcdefghijklmnop";

inline Gmail::SignIn signIn(std::string_view appPassword, std::string address = ann) {
    return {std::move(address), Secret(appPassword)};
}

inline void PrintTo(const Gmail::Filed& filed, std::ostream* out) {
    *out << filed.count << " filed, " << filed.error.value_or("no error");
}

/// A conversation up to the command that signs Ann in.
inline Transcript signingIn() {
    return Transcript()
        .accepts()
        .says("* OK Gimap ready\r\n")
        .hears("a001 LOGIN \"ann@home.example\" \"abcdefghijklmnop\"");
}

/// A conversation in which Ann has signed in.
inline Transcript signedIn() {
    return signingIn().says("* CAPABILITY IMAP4rev1\r\na001 OK Ann signed in\r\n");
}

}  // namespace brindlet
