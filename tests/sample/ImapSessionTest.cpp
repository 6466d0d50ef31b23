#include "sample/ImapSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace brindlet::sample {
namespace {

/// Three messages with the UIDs 2, 5 and 9. A message's number is ten times its UID.
class SmallAccount : public ImapAccount {
  public:
    using Labels = std::map<std::int64_t, std::vector<std::string>>;

    explicit SmallAccount(Labels& labels) : labels_(labels) {}

    std::vector<Name> mailboxes() override {
        return {{"INBOX", {}},
                {"[Gmail]", {"\\Noselect"}},
                {"[Gmail]/All Mail", {"\\All"}},
                {"Travel/Côte", {}},
                {"Say \"hi\"", {}}};
    }
    std::optional<ImapMailbox> open(const std::string& name) override {
        if (name == "Empty") return ImapMailbox{8, 1, {}};
        if (name != "INBOX" && name != "Travel/Côte" && name != "Say \"hi\"") return std::nullopt;
        return ImapMailbox{7, 10, {{2, 20}, {5, 50}, {9, 90}}};
    }
    std::optional<Marks> marks(std::int64_t message) override {
        if (!labels_.contains(message)) return std::nullopt;
        return Marks{message != 50, message == 90};
    }
    std::string header(std::int64_t message) override {
        if (message == 90) return "\r\n";
        return "From: a\r\nmessage-id: <" + std::to_string(message) +
               "@h>\r\nSubject: long\r\n folded\r\nTo: b\r\nsubject : again\r\n\r\n";
    }
    std::int64_t size(std::int64_t message) override { return message * 100; }
    std::vector<std::string> labels(std::int64_t message) override { return labels_[message]; }
    bool mayChange(const std::string& label) override { return label != "\\Sent"; }
    bool addLabel(std::int64_t message, const std::string& label) override {
        if (label == "Broken") return false;
        labels_[message].push_back(label);
        return true;
    }
    bool removeLabel(std::int64_t message, const std::string& label) override {
        std::erase(labels_[message], label);
        return true;
    }

  private:
    Labels& labels_;
};

/// One conversation, and what the server has said in it.
struct Conversation {
    explicit Conversation(const ImapFaults& faults = {})
        : session(
              [this](const std::string& address, const std::string& password) {
                  logins.push_back(address + '|' + password);
                  return password == "pass word" ? std::make_unique<SmallAccount>(labels) : nullptr;
              },
              [this](std::string_view bytes) {
                  said += bytes;
                  return listens;
              },
              faults) {}

    /// What the server says to it.
    std::string operator()(std::string_view bytes) {
        said.clear();
        session.receive(bytes);
        return said;
    }
    /// Logged in, with the mailbox of three messages.
    Conversation& opened() {
        session.receive("x LOGIN robin {9+}\r\npass word\r\ny SELECT INBOX\r\n");
        return *this;
    }

    SmallAccount::Labels labels{{20, {"\\Inbox"}}, {50, {"\\Inbox", "Bills"}}, {90, {}}};
    std::vector<std::string> logins;
    std::string said;
    bool listens = true;
    ImapSession session;
};

TEST(ImapSession, GreetsFirst) {
    Conversation client;
    client.session.greet();
    EXPECT_EQ(client.said, "* OK Ready\r\n");
    EXPECT_FALSE(client.session.ended());
}

TEST(ImapSession, AnswersBeforeTheLogin) {
    const struct {
        std::string_view command;
        std::string_view answer;
    } rows[] = {
        {"a1 NOOP\r\n", "a1 OK Nothing done\r\n"},
        {"a1 noop\n", "a1 OK Nothing done\r\n"},
        {"a1 CAPABILITY\r\n",
         "* CAPABILITY IMAP4rev1 LITERAL+ SPECIAL-USE X-GM-EXT-1\r\na1 OK That is all\r\n"},
        {"a1 NOOP now\r\n", "a1 BAD That is not understood\r\n"},
        {"a1 NOOPS\r\n", "a1 BAD That is not understood\r\n"},
        {"a1 \r\n", "a1 BAD That is not understood\r\n"},
        {"a1\r\n", "* BAD A command begins with a tag\r\n"},
        {"\r\n", "* BAD A command begins with a tag\r\n"},
        {"a+1 NOOP\r\n", "* BAD A command begins with a tag\r\n"},
        {"a1 SELECT INBOX\r\n", "a1 BAD This is not the time for it\r\n"},
        {"a1 LIST \"\" *\r\n", "a1 BAD This is not the time for it\r\n"},
        {"a1 UID FETCH 1 UID\r\n", "a1 BAD This is not the time for it\r\n"},
        {"a1 STARTTLS\r\n", "a1 BAD That is not understood\r\n"},
        {"a1 AUTHENTICATE PLAIN\r\n", "a1 BAD That is not understood\r\n"},
        {"a1 NOOP\r\na2 NOOP\r\n", "a1 OK Nothing done\r\na2 OK Nothing done\r\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(Conversation()(row.command), row.answer) << row.command;
}

TEST(ImapSession, LoginTakesAtomsAndQuotedTextsAndLiterals) {
    const struct {
        std::string_view command;
        std::string_view answer;
        std::string_view login;
    } rows[] = {
        {"a LOGIN \"robin\" \"pass word\"\r\n", "a OK Come in\r\n", "robin|pass word"},
        {"a LOGIN robin {9}\r\npass word\r\n", "+ Go on\r\na OK Come in\r\n", "robin|pass word"},
        {"a LOGIN {5}\r\nrobin {9+}\r\npass word\r\n", "+ Go on\r\na OK Come in\r\n",
         "robin|pass word"},
        {"a LOGIN robin wrong\r\n", "a NO [AUTHENTICATIONFAILED] Address or password is wrong\r\n",
         "robin|wrong"},
        {"a LOGIN \"o\\\"k\" \"b\\\\s\"\r\n",
         "a NO [AUTHENTICATIONFAILED] Address or password is wrong\r\n", "o\"k|b\\s"},
        {"a LOGIN robin\r\n", "a BAD That is not understood\r\n", ""},
        {"a LOGIN robin \"pass\r\n", "a BAD That is not understood\r\n", ""},
        {"a LOGIN robin \"pa\"ss\"\r\n", "a BAD That is not understood\r\n", ""},
        {"a LOGIN robin pass word\r\n", "a BAD That is not understood\r\n", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.command);
        Conversation client;
        EXPECT_EQ(client(row.command), row.answer);
        EXPECT_EQ(client.logins.empty() ? "" : client.logins.front(), row.login);
    }
}

TEST(ImapSession, ARefusedLoginMayBeTriedAgainAndAGoodOneNot) {
    Conversation client;
    client("a LOGIN robin wrong\r\n");
    EXPECT_EQ(client("b LOGIN robin \"pass word\"\r\n"), "b OK Come in\r\n");
    EXPECT_EQ(client("c LOGIN robin \"pass word\"\r\n"), "c BAD This is not the time for it\r\n");
}

TEST(ImapSession, LogoutEndsTheConversation) {
    Conversation client;
    EXPECT_EQ(client("a LOGOUT\r\nb NOOP\r\n"), "* BYE Until next time\r\na OK Farewell\r\n");
    EXPECT_TRUE(client.session.ended());
}

TEST(ImapSession, WhoeverSendsWithoutEndIsSentAway) {
    Conversation client;
    EXPECT_EQ(client(std::string(70'000, 'x')), "* BYE That is too long\r\n");
    EXPECT_TRUE(client.session.ended());
}

TEST(ImapSession, SelectsByEitherFormOfAName) {
    Conversation client;
    client("a LOGIN robin \"pass word\"\r\n");
    const std::string three =
        "* FLAGS (\\Seen \\Flagged)\r\n* 3 EXISTS\r\n* 0 RECENT\r\n"
        "* OK [PERMANENTFLAGS ()] Flags stay as they are\r\n"
        "* OK [UIDVALIDITY 7] So long do UIDs hold\r\n* OK [UIDNEXT 10] The next one\r\n";
    EXPECT_EQ(client("b SELECT INBOX\r\n"), three + "b OK [READ-WRITE] Opened\r\n");
    EXPECT_EQ(client("b EXAMINE \"INBOX\"\r\n"), three + "b OK [READ-ONLY] Opened\r\n");
    EXPECT_EQ(client("b SELECT \"Travel/Côte\"\r\n"), three + "b OK [READ-WRITE] Opened\r\n");
    EXPECT_EQ(client("b SELECT Travel/C&APQ-te\r\n"), three + "b OK [READ-WRITE] Opened\r\n");
    EXPECT_EQ(client("b SELECT \"Say \\\"hi\\\"\"\r\n"), three + "b OK [READ-WRITE] Opened\r\n");
    EXPECT_NE(client("b SELECT Empty\r\n").find("* 0 EXISTS\r\n"), std::string::npos);
    EXPECT_EQ(client("b SELECT \"Say \"hi\"\"\r\n"), "b BAD That is not understood\r\n");
    EXPECT_EQ(client("b SELECT\r\n"), "b BAD That is not understood\r\n");
    EXPECT_EQ(client("b SELECT \"\xFF\"\r\n"), "b NO [NONEXISTENT] There is no such mailbox\r\n");
}

TEST(ImapSession, AMailboxThatIsNotThereClosesTheOneBefore) {
    Conversation client;
    client.opened();
    EXPECT_EQ(client("b SELECT Nowhere\r\n"), "b NO [NONEXISTENT] There is no such mailbox\r\n");
    EXPECT_EQ(client("c UID FETCH 2 UID\r\n"), "c BAD This is not the time for it\r\n");
}

TEST(ImapSession, ListsByPattern) {
    const std::string inbox = "* LIST () \"/\" \"INBOX\"\r\n";
    const std::string root = "* LIST (\\Noselect) \"/\" \"[Gmail]\"\r\n";
    const std::string all = "* LIST (\\All) \"/\" \"[Gmail]/All Mail\"\r\n";
    const std::string travel = "* LIST () \"/\" \"Travel/C&APQ-te\"\r\n";
    const std::string hi = "* LIST () \"/\" \"Say \\\"hi\\\"\"\r\n";
    const struct {
        std::string_view arguments;
        std::string lines;
    } rows[] = {
        {"\"\" *", inbox + root + all + travel + hi},
        {"\"\" \"*\"", inbox + root + all + travel + hi},
        {"\"\" %", inbox + root + hi},
        {"\"\" %/%", all + travel},
        {"\"[Gmail]/\" %", all},
        {"\"\" *a*l", all},
        {"\"\" INBOX", inbox},
        {"\"\" Nowhere*", ""},
        {"\"\" \"\"", "* LIST (\\Noselect) \"/\" \"\"\r\n"},
    };
    Conversation client;
    client("a LOGIN robin \"pass word\"\r\n");
    for (const auto& row : rows)
        EXPECT_EQ(client("b LIST " + std::string(row.arguments) + "\r\n"),
                  row.lines + "b OK That is all\r\n")
            << row.arguments;
    EXPECT_EQ(client("b LIST \"\"\r\n"), "b BAD That is not understood\r\n");
}

TEST(ImapSession, FetchesWhatWasAskedFor) {
    const std::string header20 =
        "From: a\r\nmessage-id: <20@h>\r\nSubject: long\r\n folded\r\nTo: b\r\n"
        "subject : again\r\n\r\n";
    const struct {
        std::string_view arguments;
        std::string lines;
    } rows[] = {
        {"2 UID", "* 1 FETCH (UID 2)\r\n"},
        {"2 (UID FLAGS)", "* 1 FETCH (UID 2 FLAGS (\\Seen))\r\n"},
        {"5:* (FLAGS UID)",
         "* 2 FETCH (UID 5 FLAGS ())\r\n* 3 FETCH (UID 9 FLAGS (\\Seen \\Flagged))\r\n"},
        {"9 rfc822.size", "* 3 FETCH (UID 9 RFC822.SIZE 9000)\r\n"},
        {"5 X-GM-LABELS", "* 2 FETCH (UID 5 X-GM-LABELS (\"\\\\Inbox\" \"Bills\"))\r\n"},
        {"9 (X-GM-LABELS)", "* 3 FETCH (UID 9 X-GM-LABELS ())\r\n"},
        {"1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])",
         "* 1 FETCH (UID 2 BODY[HEADER.FIELDS (MESSAGE-ID)] {22}\r\n"
         "message-id: <20@h>\r\n\r\n)\r\n"
         "* 2 FETCH (UID 5 BODY[HEADER.FIELDS (MESSAGE-ID)] {22}\r\n"
         "message-id: <50@h>\r\n\r\n)\r\n"
         "* 3 FETCH (UID 9 BODY[HEADER.FIELDS (MESSAGE-ID)] {2}\r\n\r\n)\r\n"},
        // A folded field comes whole, and one that stands twice comes twice.
        {"2 BODY[HEADER.FIELDS (\"subject\" None)]",
         "* 1 FETCH (UID 2 BODY[HEADER.FIELDS (subject None)] {43}\r\n"
         "Subject: long\r\n folded\r\nsubject : again\r\n\r\n)\r\n"},
        {"2 BODY[HEADER]", "* 1 FETCH (UID 2 BODY[HEADER] {" + std::to_string(header20.size()) +
                               "}\r\n" + header20 + ")\r\n"},
        {"2 (body.peek[header] FLAGS)", "* 1 FETCH (UID 2 BODY[HEADER] {" +
                                            std::to_string(header20.size()) + "}\r\n" + header20 +
                                            " FLAGS (\\Seen))\r\n"},
        {"3:4 UID", ""},
        {"77 UID", ""},
        {"77:* UID", "* 3 FETCH (UID 9)\r\n"},
    };
    Conversation client;
    client.opened();
    for (const auto& row : rows)
        EXPECT_EQ(client("f UID FETCH " + std::string(row.arguments) + "\r\n"),
                  row.lines + "f OK That is all\r\n")
            << row.arguments;
}

TEST(ImapSession, RefusesToFetchWhatItDoesNotKnow) {
    Conversation client;
    client.opened();
    for (const std::string arguments :
         {"2", "2 ", "2 ()", "2 (UID", "2 UID FLAGS", "2 BODY[]", "2 BODY[TEXT]", "2 ENVELOPE",
          "2 FAST", "2 BODY[HEADER", "2 BODY[HEADER.FIELDS ()]", "2 BODY[HEADER.FIELDS (A]",
          "2 BODY[HEADER.FIELDS.NOT (A)]", "2 BODY[HEADER]<0.10>", "0 UID", "a UID", "\"2\" UID",
          "2 (UID) x"})
        EXPECT_EQ(client("f UID FETCH " + arguments + "\r\n"), "f BAD That is not understood\r\n")
            << arguments;
}

TEST(ImapSession, WhatIsGoneSinceItWasSelectedIsPassedOver) {
    Conversation client;
    client.opened();
    client.labels.erase(50);
    EXPECT_EQ(client("f UID FETCH 1:* UID\r\n"),
              "* 1 FETCH (UID 2)\r\n* 3 FETCH (UID 9)\r\nf OK That is all\r\n");
    EXPECT_EQ(client("s UID STORE 5 +X-GM-LABELS (New)\r\n"), "s OK Done\r\n");
    EXPECT_FALSE(client.labels.contains(50));
}

TEST(ImapSession, SearchFindsAll) {
    Conversation client;
    client.opened();
    EXPECT_EQ(client("s UID SEARCH ALL\r\n"), "* SEARCH 2 5 9\r\ns OK That is all\r\n");
    EXPECT_EQ(client("s UID SEARCH UNSEEN\r\n"), "s BAD That is not understood\r\n");
    client("b SELECT Empty\r\n");
    EXPECT_EQ(client("s UID SEARCH ALL\r\n"), "* SEARCH\r\ns OK That is all\r\n");
}

TEST(ImapSession, LabelsArePutOnAndOff) {
    Conversation client;
    client.opened();
    EXPECT_EQ(client("s UID STORE 2,5 +X-GM-LABELS (\"Brindlet Junk\" Caf&AOk-)\r\n"),
              "* 1 FETCH (UID 2 X-GM-LABELS (\"\\\\Inbox\" \"Brindlet Junk\" \"Caf&AOk-\"))\r\n"
              "* 2 FETCH (UID 5 X-GM-LABELS (\"\\\\Inbox\" \"Bills\" \"Brindlet Junk\""
              " \"Caf&AOk-\"))\r\ns OK Done\r\n");
    EXPECT_EQ(client("s UID STORE 1:* -X-GM-LABELS.SILENT (\\Inbox)\r\n"), "s OK Done\r\n");
    EXPECT_EQ(client("s UID STORE 9 +x-gm-labels \"Thé\"\r\n"),
              "* 3 FETCH (UID 9 X-GM-LABELS (\"Th&AOk-\"))\r\ns OK Done\r\n");
    EXPECT_EQ(client("s UID STORE 9 -X-GM-LABELS ()\r\n"),
              "* 3 FETCH (UID 9 X-GM-LABELS (\"Th&AOk-\"))\r\ns OK Done\r\n");
    const SmallAccount::Labels expected{
        {20, {"Brindlet Junk", "Café"}}, {50, {"Bills", "Brindlet Junk", "Café"}}, {90, {"Thé"}}};
    EXPECT_EQ(client.labels, expected);
}

TEST(ImapSession, OtherStoresChangeNothing) {
    Conversation client;
    client.opened();
    const SmallAccount::Labels before = client.labels;
    const struct {
        std::string_view arguments;
        std::string_view answer;
    } rows[] = {
        {"2 +FLAGS (\\Deleted)", "BAD That is not understood"},
        {"2 FLAGS (\\Seen)", "BAD That is not understood"},
        {"2 X-GM-LABELS (a)", "BAD That is not understood"},
        {"2 +X-GM-LABELS", "BAD That is not understood"},
        {"2 +X-GM-LABELS (a", "BAD That is not understood"},
        {"2 +X-GM-LABELS (a b) c", "BAD That is not understood"},
        {"2 +X-GM-LABELS a b", "BAD That is not understood"},
        {"2 +X-GM-LABELS (\"\")", "BAD That is not understood"},
        {"2 +X-GM-LABELS (\"a\"b\")", "BAD That is not understood"},
        {"2 +X-GM-LABELS (\"\xFF\")", "BAD That is not understood"},
        {"0 +X-GM-LABELS (a)", "BAD That is not understood"},
        {"2 +X-GM-LABELS (New \\Sent)", "NO [CANNOT] That is no label to put on or off"},
        {"2 -X-GM-LABELS (\\Sent)", "NO [CANNOT] That is no label to put on or off"},
        {"2 +X-GM-LABELS.SILENT (Broken)", "NO Not all labels could be changed"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(client("s UID STORE " + std::string(row.arguments) + "\r\n"),
                  "s " + std::string(row.answer) + "\r\n")
            << row.arguments;
    client("e EXAMINE INBOX\r\n");
    EXPECT_EQ(client("s UID STORE 2 +X-GM-LABELS (New)\r\n"),
              "s NO The mailbox is open for reading only\r\n");
    EXPECT_EQ(client.labels, before);
}

TEST(ImapSession, NothingThatDeletesIsUnderstood) {
    Conversation client;
    client.opened();
    for (const std::string command :
         {"EXPUNGE", "CLOSE", "DELETE Receipts", "UID EXPUNGE 2", "UID MOVE 2 Receipts",
          "UID COPY 2 Receipts", "COPY 1 Receipts", "STORE 1 +FLAGS (\\Deleted)",
          "APPEND INBOX {1+}\r\nx", "RENAME INBOX b", "CREATE b"})
        EXPECT_EQ(client("d " + command + "\r\n"), "d BAD That is not understood\r\n") << command;
}

TEST(ImapSession, AConversationIsTheSameInPiecesOfAnySize) {
    const std::string transcript =
        "a001 CAPABILITY\r\na002 LOGIN {5}\r\nrobin \"pass word\"\r\na003 SELECT \"INBOX\"\n"
        "a004 UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])\r\n"
        "a005 UID STORE 2,5 +X-GM-LABELS (\"Brindlet Junk\")\r\n"
        "a006 UID STORE 2,5 -X-GM-LABELS (\\Inbox)\r\na007 WHAT {2+}\r\nab\r\na008 LOGOUT\r\n";
    Conversation whole;
    const std::string expected = whole(transcript);
    EXPECT_TRUE(whole.session.ended());
    EXPECT_NE(expected.find("a007 BAD"), std::string::npos);
    for (std::size_t cut = 0; cut <= transcript.size(); ++cut) {
        Conversation client;
        client.session.receive(transcript.substr(0, cut));
        client.session.receive(transcript.substr(cut));
        EXPECT_EQ(client.said, expected) << "cut at " << cut;
    }
    Conversation bytewise;
    for (const char c : transcript) bytewise.session.receive({&c, 1});
    EXPECT_EQ(bytewise.said, expected);
}

TEST(ImapSession, StopsWhenNobodyListens) {
    Conversation client;
    client.opened();
    client.listens = false;
    EXPECT_EQ(client("f UID FETCH 1:* UID\r\n"), "* 1 FETCH (UID 2)\r\n");
    EXPECT_TRUE(client.session.ended());
}

TEST(ImapFaults, TheCommandOfThatNumberIsRefusedAndNotCarriedOut) {
    Conversation no({.no = 2});
    EXPECT_EQ(no("a NOOP\r\nb LOGIN robin \"pass word\"\r\nc NOOP\r\n"),
              "a OK Nothing done\r\nb NO That cannot be done now\r\nc OK Nothing done\r\n");
    EXPECT_TRUE(no.logins.empty());
    Conversation bad({.bad = 1});
    EXPECT_EQ(bad("a NOOP\r\nb NOOP\r\n"), "a BAD That is not understood\r\nb OK Nothing done\r\n");
    Conversation bye({.bye = 2});
    bye.session.greet();
    EXPECT_EQ(bye("a NOOP\r\nb LOGIN robin \"pass word\"\r\nc NOOP\r\n"),
              "a OK Nothing done\r\n* BYE Enough for now\r\n");
    EXPECT_TRUE(bye.logins.empty());
    EXPECT_TRUE(bye.session.ended());
}

TEST(ImapFaults, AFarewellMayBeTheGreeting) {
    Conversation client({.bye = 0});
    client.session.greet();
    EXPECT_EQ(client.said, "* BYE Not today\r\n");
    EXPECT_TRUE(client.session.ended());
}

TEST(ImapFaults, AnswersGrowAndDecay) {
    Conversation huge({.hugeLine = 100'000});
    EXPECT_EQ(huge("a NOOP\r\n"),
              "* OK " + std::string(100'000, 'x') + "\r\na OK Nothing done\r\n");
    Conversation invalid({.invalidUtf8 = true});
    EXPECT_EQ(invalid("a NOOP\r\n"), "a OK Nothing done \xC3(\xFF\r\n");
}

}  // namespace
}  // namespace brindlet::sample
