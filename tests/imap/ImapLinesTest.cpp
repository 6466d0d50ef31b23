#include "imap/Talk.h"

namespace brindlet {
namespace {

using namespace std::string_literals;
using Lines = Imap::Lines;

/// A server that says all this in one breath with its greeting.
Transcript saying(const std::string& bytes) {
    return Transcript().accepts().says("* OK\r\n" + bytes);
}

TEST(ImapLines, EndAtALineFeedAndLoseTheirCarriageReturns) {
    const struct {
        std::string bytes;
        Lines lines;
    } rows[] = {
        {"* one\r\n* two\r\n", {"* one", "* two"}},
        {"* one\n* two\n", {"* one", "* two"}},
        {"* one\n* two\r\n", {"* one", "* two"}},
        {"\r\n\n\r\r\n", {"", "", ""}},
        {"\r\r* one\r\r\n", {"* one"}},
        {"* o\rne\r\n", {"* o\rne"}},
        {"  * one \t\r\n", {"  * one \t"}},
        {"* n\0l\r\n"s, {"* n\0l"s}},
        {"* caf\xC3\xA9 \xE2\x82\xAC\r\n", {"* caf\xC3\xA9 \xE2\x82\xAC"}},
        // Bad UTF-8 is repaired, and never takes the line's end with it.
        {"* \xFF.\r\n", {"* \xEF\xBF\xBD."}},
        {"\xE2\x82\r\n\x82\n", {"\xEF\xBF\xBD", "\xEF\xBF\xBD"}},
        {"\xF0\x9F\n* \xC0\xAF\n", {"\xEF\xBF\xBD", "* \xEF\xBF\xBD\xEF\xBF\xBD"}},
    };
    for (const auto& row : rows)
        doubles::eachCut(saying(row.bytes + "a001 OK\r\n"), [&](TranscriptConnector& connector) {
            Imap imap = connected(connector);
            const auto lines = imap.readResponse("a001");
            ASSERT_TRUE(lines) << row.bytes;
            auto expected = row.lines;
            expected.push_back("a001 OK");
            EXPECT_EQ(*lines, expected) << row.bytes;
        });
}

TEST(ImapLines, OnlyTheTagItselfEndsAResponse) {
    const std::string others =
        "a002 OK\r\na0010 OK\r\na00 OK\r\na001\r\na001OK\r\nA001 OK\r\n a001 OK\r\n* a001 OK\r\n"
        "* OK\r\n+ go on\r\n";
    doubles::eachCut(saying(others + "a001 BAD\r\n"), [](TranscriptConnector& connector) {
        Imap imap = connected(connector);
        const auto lines = imap.readResponse("a001");
        ASSERT_TRUE(lines);
        EXPECT_EQ(lines->size(), 11u);
        EXPECT_EQ(lines->back(), "a001 BAD");
    });
}

TEST(ImapLines, ATagMayStandBehindStrayCarriageReturns) {
    TranscriptConnector connector(saying("\r\ra001 OK\r\n"));
    Imap imap = connected(connector);
    EXPECT_EQ(*imap.readResponse("a001"), Lines{"a001 OK"});
}

TEST(ImapLines, WhatCameAlongStaysForTheNextRead) {
    TranscriptConnector connector(saying("* 1\r\na001 OK\r\n* 2\r\na002 OK\r\na003 O"));
    Imap imap = connected(connector);
    EXPECT_EQ(*imap.readResponse("a001"), (Lines{"* 1", "a001 OK"}));
    EXPECT_EQ(*imap.readResponse("a002"), (Lines{"* 2", "a002 OK"}));
    EXPECT_EQ(connector.asked(), std::vector<std::size_t>{1'048'576}) << "one receive";
}

TEST(ImapLines, TheBufferIsLookedIntoBeforeAConnectionIsNeeded) {
    TranscriptConnector connector(saying("a001 OK\r\na002 O"));
    Imap imap = connected(connector);
    imap.close();
    EXPECT_EQ(*imap.readResponse("a001"), Lines{"a001 OK"});
    EXPECT_EQ(failed(imap.readResponse("a002")), connectionFailure("not connected"));
}

TEST(ImapLines, AnEmptyReceiveIsAskedAgain) {
    TranscriptConnector connector(
        Transcript().accepts().says("").says("* O").says("").says("").says("K\r\n"));
    connected(connector);
    EXPECT_EQ(connector.strayed(), "");
    EXPECT_EQ(connector.asked(), std::vector<std::size_t>(5, 1'048'576));
}

TEST(ImapLines, WhatComesWithTheEndCountsFirst) {
    doubles::eachCut(saying("a001 OK\r\na002 O").ends(), [](TranscriptConnector& connector) {
        Imap imap = connected(connector);
        EXPECT_EQ(*imap.readResponse("a001"), Lines{"a001 OK"});
        const auto closed = connectionFailure("server closed the connection");
        EXPECT_EQ(failed(imap.readResponse("a002")), closed) << "half a line is none";
        EXPECT_EQ(failed(imap.readResponse("a002")), closed);
        EXPECT_EQ(connector.strayed(), "");
    });
}

TEST(ImapLines, WhatCameBeforeAFailureIsNotReadAgain) {
    TranscriptConnector connector(saying("* one\r\n").fails("Network is down"));
    Imap imap = connected(connector);
    EXPECT_EQ(failed(imap.readResponse("a001")), connectionFailure("Network is down"));
    EXPECT_EQ(failed(imap.readResponse("a001")), connectionFailure("Network is down"));
}

TEST(ImapLines, ALineMayBeHuge) {
    const std::string huge = "* " + std::string(3'000'000, 'x');
    for (const std::size_t piece : {std::size_t{1'048'576}, std::size_t{1000}}) {
        TranscriptConnector pieces(saying("* 1\r\n" + huge + "\r\na001 OK\r\n"));
        pieces.setCut([piece](std::size_t position) { return position % piece == 0; });
        Imap imap = connected(pieces);
        const auto lines = imap.readResponse("a001");
        ASSERT_TRUE(lines);
        EXPECT_EQ(*lines, (Lines{"* 1", huge, "a001 OK"}));
    }
}

}  // namespace
}  // namespace brindlet
