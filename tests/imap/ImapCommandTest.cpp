#include <cstdio>

#include "imap/Talk.h"

namespace brindlet {
namespace {

using namespace std::string_literals;

TEST(ImapCommand, NumbersItsTagsWithThreeDigitsAtLeast) {
    Transcript transcript = greeted();
    for (int i = 1; i <= 1001; ++i) {
        char tag[16];
        std::snprintf(tag, sizeof tag, "a%03d", i);
        transcript.hears(tag + " SELECT \"x\""s).says(tag + " OK\r\n"s);
    }
    TranscriptConnector connector(transcript);
    Imap imap = connected(connector);
    for (int i = 1; i <= 1001; ++i) ASSERT_TRUE(imap.command("SELECT \"x\"")) << i;
    EXPECT_EQ(connector.strayed(), "");
}

TEST(ImapCommand, SucceedsWhenItsLastLineSaysSo) {
    const struct {
        std::string last;
        bool good;
    } rows[] = {
        {"a001 OK", true},
        {"a001 OK [READ-WRITE] done", true},
        {"a001 OKAY", true},
        {"a001 ok", false},
        {"a001 NO [AUTHENTICATIONFAILED] Invalid credentials", false},
        {"a001 BAD unknown", false},
        {"a001  OK", false},
        {"a001 ", false},
        {"a001 BYE \xEF\xBF\xBD", false},
    };
    for (const auto& row : rows)
        doubles::eachCut(
            greeted()
                .hears("a001 SELECT \"x\"")
                .says("* OK still here\r\na0010 OK\r\na001\r\n" + row.last + "\r\n"),
            [&](TranscriptConnector& connector) {
                Imap imap = connected(connector);
                const auto lines = imap.command("SELECT \"x\"");
                EXPECT_EQ(failed(lines), row.good ? Imap::Failed() : protocolError(row.last));
                if (lines) {
                    EXPECT_EQ(*lines,
                              (Imap::Lines{"* OK still here", "a0010 OK", "a001", row.last}));
                }
                EXPECT_EQ(connector.strayed(), "");
            });
}

TEST(ImapCommand, TellsWhereTheConnectionFailed) {
    TranscriptConnector sending(greeted().fails("Broken pipe"));
    EXPECT_EQ(failed(connected(sending).command("SELECT \"x\"")), connectionFailure("Broken pipe"));
    TranscriptConnector waiting(
        greeted().hears("a001 SELECT \"x\"").says("* 1 EXISTS\r\n").fails("Network is down"));
    EXPECT_EQ(failed(connected(waiting).command("SELECT \"x\"")),
              connectionFailure("Network is down"));
    TranscriptConnector closing(greeted().hears("a001 SELECT \"x\"").says("* BYE\r\n").ends());
    EXPECT_EQ(failed(connected(closing).command("SELECT \"x\"")),
              connectionFailure("server closed the connection"));
    EXPECT_EQ(sending.strayed() + waiting.strayed() + closing.strayed(), "");
}

TEST(ImapCommand, ATextThatIsMoreThanOneLineIsRefusedUnsent) {
    for (const auto& text : {"a\r\na002 UID EXPUNGE 1:*"s, "a\n"s, "\n"s, "\r"s, "a\rb"s, "a\0b"s,
                             "\0"s, "a\r\n"s, "x\" \\Deleted \""s, "\\deleted"s, "\\DELETED"s}) {
        TranscriptConnector connector(greeted());
        Imap imap = connected(connector);
        const auto refused = protocolError("no response");
        EXPECT_EQ(imap.sendLine(text), refused);
        EXPECT_EQ(failed(imap.command(text)), refused);
        EXPECT_EQ(failed(imap.command("LOGIN \"ann@home.example\" \"" + text + '"')), refused);
        EXPECT_EQ(failed(imap.select(text)), refused);
        EXPECT_EQ(imap.addLabels({"Good", text}, {1}), refused);
        EXPECT_EQ(imap.removeLabels({text, "Good"}, {1}), refused);
        EXPECT_EQ(imap.addLabels({'\\' + text}, {1}), refused);
        EXPECT_EQ(connector.strayed(), "") << "nothing was sent: " << text;
    }
}

TEST(ImapSendLine, AddsTheLinesEndAndNothingElse) {
    TranscriptConnector connector(greeted().hears("a007 SELECT \"caf\xC3\xA9 \"\\ \""));
    Imap imap = connected(connector);
    EXPECT_EQ(imap.sendLine("a007 SELECT \"caf\xC3\xA9 \"\\ \""), std::nullopt);
    EXPECT_EQ(connector.strayed(), "");
}

TEST(ImapSelect, GivesTheNumberOfMessages) {
    const struct {
        std::string answer;
        std::int64_t messages;
    } rows[] = {
        {"* FLAGS (\\Seen)\r\n* 23 EXISTS\r\n* 1 RECENT\r\n", 23},
        {"* 0 EXISTS\r\n", 0},
        {"", 0},
        {"* 5 EXISTS\r\n* 6 EXISTS\r\n", 5},
        {"*  7   EXISTS\r\n", 7},
        {"* 8 EXISTSENCE\r\n", 8},
        {"* +9 EXISTS\r\n", 9},
        {"* -9 EXISTS\r\n", -9},
        {"* 5 exists\r\n", 0},
        {"* 5\tEXISTS\r\n", 0},
        {"* 5EXISTS\r\n", 0},
        {"* 0x5 EXISTS\r\n", 0},
        {"* 5. EXISTS\r\n", 0},
        {"* 99999999999999999999 EXISTS\r\n", 0},
        {" EXISTS\r\n", 0},
        // The number is looked for in the second place alone, and a line without it passed over.
        {"* OK 5 EXISTS\r\n", 0},
        {"* OK it EXISTS\r\n* 5 EXISTS\r\n", 5},
        {"5 6 EXISTS\r\n", 6},
    };
    for (const auto& row : rows)
        doubles::eachCut(greeted().hears("a001 SELECT \"INBOX\"").says(row.answer + "a001 OK\r\n"),
                         [&](TranscriptConnector& connector) {
                             Imap imap = connected(connector);
                             const auto messages = imap.select("INBOX");
                             ASSERT_TRUE(messages) << row.answer;
                             EXPECT_EQ(*messages, row.messages) << row.answer;
                             EXPECT_EQ(connector.strayed(), "");
                         });
}

TEST(ImapSelect, EscapesNothing) {
    for (const auto* const name : {"[Gmail]/All Mail", "a\"b\\c", "caf\xC3\xA9", "", "a & b"}) {
        TranscriptConnector connector(
            greeted().hears("a001 SELECT \""s + name + '"').says("a001 OK\r\n"));
        EXPECT_TRUE(connected(connector).select(name));
        EXPECT_EQ(connector.strayed(), "");
    }
}

TEST(ImapSelect, FailsWithTheServersLine) {
    TranscriptConnector connector(greeted()
                                      .hears("a001 SELECT \"Gone\"")
                                      .says("* 5 EXISTS\r\na001 NO [NONEXISTENT] Gone\r\n"));
    EXPECT_EQ(failed(connected(connector).select("Gone")),
              protocolError("a001 NO [NONEXISTENT] Gone"));
}

}  // namespace
}  // namespace brindlet
