#include "sample/MessageHeader.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

std::uint64_t hashOf(std::string_view bytes) {
    std::uint64_t hash = bytes.size();
    for (const char byte : bytes) hash = mixed(hash, static_cast<unsigned char>(byte));
    return hash;
}

PlannedMessage message(const Family& family) {
    PlannedMessage planned;
    planned.key = 7;
    planned.family = &family;
    planned.sender = {"Vance, Nora", "nora@pinebrook.example"};
    planned.recipients = {{"Robin Ashdown", "robin@fernhill.example"},
                          {"", "ida@fernhill.example"}};
    planned.subject = "Grüße";
    planned.subjectPrefix = "Re: ";
    planned.messageId = "one@pinebrook.example";
    planned.dateSent = 1'768'392'000;
    return planned;
}

std::string header(const PlannedMessage& planned, std::uint64_t seed, std::size_t size) {
    std::string out;
    Random random(seed);
    appendHeader(out, planned, random, size);
    return out;
}

TEST(MessageHeader, HoldsSenderRecipientsSubjectAndId) {
    const Family family;
    const std::string text = header(message(family), 1, 1'000);
    for (const std::string_view field :
         {"\nFrom: \"Vance, Nora\" <nora@pinebrook.example>\n",
          "\nTo: Robin Ashdown <robin@fernhill.example>,\n ida@fernhill.example\n",
          "\nSubject: Re: =?UTF-8?B?R3LDvMOfZQ==?=\n", " <one@pinebrook.example>\n",
          "\nMIME-Version: 1.0\n"})
        EXPECT_NE(text.find(field), std::string::npos) << field << text;
    EXPECT_EQ(text.find("\n\n"), std::string::npos);
}

TEST(MessageHeader, AFoldedIdStandsOnALineOfItsOwn) {
    const Family family;
    PlannedMessage planned = message(family);
    planned.trouble = Trouble::foldedMessageId;
    EXPECT_NE(header(planned, 1, 1'000).find(":\n\t<one@pinebrook.example>\n"), std::string::npos);
}

TEST(MessageHeader, WithoutAnIdThereIsNoFieldForIt) {
    const Family family;
    PlannedMessage planned = message(family);
    planned.messageId.clear();
    planned.trouble = Trouble::noSubjectRow;
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const std::string text = '\n' + header(planned, seed, 9'000);
        for (const std::string_view field : {"\nMessage-I", "\nmessage-id", "\nSubject:"})
            EXPECT_EQ(text.find(field), std::string::npos) << text;
    }
}

TEST(MessageHeader, OnlyCompaniesOfferToUnsubscribe) {
    Family family;
    EXPECT_EQ(header(message(family), 1, 9'000).find("List-Unsubscribe:"), std::string::npos);
    family.senders.push_back({"Larkmoor", "hello@larkmoor.example"});
    EXPECT_NE(header(message(family), 1, 9'000).find("\nList-Unsubscribe: <https://"),
              std::string::npos);
}

TEST(MessageHeader, DatesAreWrittenInTheirZone) {
    EXPECT_EQ(headerDate(1'768'392'000, 0), "Wed, 14 Jan 2026 12:00:00 +0000");
    EXPECT_EQ(headerDate(1'768'392'000, -8), "Wed, 14 Jan 2026 04:00:00 -0800");
    EXPECT_EQ(headerDate(1'768'392'000 + 11 * 3600, 2), "Thu, 15 Jan 2026 01:00:00 +0200");
    EXPECT_EQ(headerDate(0, 1), "Thu, 1 Jan 1970 01:00:00 +0100");
}

TEST(MessageHeader, IdsHoldNeitherBlanksNorBrackets) {
    const Person sender{"", "a@b.example"};
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        Random random(seed);
        const std::string id = makeMessageId(sender, 1'700'000'000, random);
        EXPECT_EQ(id.find_first_of(" \t\n<>"), std::string::npos) << id;
        EXPECT_TRUE(id.ends_with("b.example")) << id;
    }
}

// The order in which a compiler works out the parts of an expression must not show.
TEST(MessageHeader, IsTheSameWhateverTheCompiler) {
    Family family;
    family.senders.push_back({"Larkmoor", "hello@larkmoor.example"});
    std::uint64_t hash = 0;
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        Random random(seed);
        hash = mixed(hash, hashOf(makeMessageId(family.senders.front(), 1'700'000'000, random)));
        hash = mixed(hash, hashOf(header(message(family), seed, 9'000)));
    }
    EXPECT_EQ(hash, 5075101033345654578u);
}

}  // namespace
}  // namespace brindlet::sample
