#include "sample/EmlxWriter.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

std::string file(std::string_view message, const EmlxFlags& flags = {}) {
    std::string bytes = "what was there before";
    beginEmlx(bytes);
    bytes += message;
    finishEmlx(bytes, flags);
    return bytes;
}

TEST(EmlxWriter, TheCountIsPaddedWithBlanksToTenCharacters) {
    EXPECT_TRUE(file("Subject: a\n\nb\n").starts_with("14        \nSubject: a\n\nb\n<?xml "));
    EXPECT_TRUE(file("").starts_with("0         \n<?xml "));
}

TEST(EmlxWriter, ThePropertyListHoldsMarksConversationAndDates) {
    EmlxFlags flags;
    flags.conversation = 77;
    flags.dateReceived = 1'700'000'000;
    flags.remoteId = 5;
    flags.read = true;
    flags.flagged = true;
    const std::string bytes = file("x\n", flags);
    for (const std::string_view entry :
         {"<key>conversation-id</key>\n\t<integer>77</integer>",
          "<key>date-received</key>\n\t<integer>1700000000</integer>",
          "<key>remote-id</key>\n\t<string>5</string>", "<key>flags</key>\n\t<integer>8589934737<"})
        EXPECT_NE(bytes.find(entry), std::string::npos) << entry;
    EXPECT_TRUE(bytes.ends_with("</dict>\n</plist>\n"));
}

TEST(EmlxWriter, TheMessageIsFoundAgainByItsCount) {
    EXPECT_EQ(messageInEmlx(file("From: a\n\nb\n")), "From: a\n\nb\n");
    for (const std::string_view damaged :
         {"", "12", "x         \nhello", "99        \nshort", "5        \nhello"})
        EXPECT_EQ(messageInEmlx(damaged), "") << damaged;
}

}  // namespace
}  // namespace brindlet::sample
