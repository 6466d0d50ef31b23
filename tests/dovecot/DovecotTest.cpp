#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "doubles/MapKeyStore.h"
#include "doubles/RecordingConnector.h"
#include "dovecot/DovecotServer.h"
#include "gmail/Gmail.h"
#include "platform/linux/OpenSslStream.h"

// Our client and our TLS with a mail server that nobody here wrote. It is not Gmail's, and knows no
// labels.

namespace brindlet {
namespace {

constexpr const char* host = "localhost";
constexpr const char* ann = "ann@home.example";

std::string message(const std::string& header) {
    return "From: Ann <ann@home.example>\r\n" + header + "Subject: Tea\r\n\r\nAt five?\r\n";
}

/// One server for all the tests: it takes its time to end.
class Dovecot : public testing::Test {
  protected:
    static constexpr std::uint32_t many = 3000;

    static void SetUpTestSuite() {
        server = std::make_unique<DovecotServer>();
        for (const char* header :
             {"Message-ID: <one@mail.example>\r\n", "MESSAGE-Id:\t<two@mail.example> \r\n", "",
              "Message-ID:\r\n <folded@mail.example>\r\n", "Message-ID: bare@mail.example\r\n",
              "Message-ID: <\xc3\xa4@mail.example>\r\n"})
            server->deliver(DovecotServer::allMail, message(header));
        for (std::uint32_t uid = 1; uid <= many; ++uid)
            server->deliver("Many", message("Message-ID: <" + idOf(uid) + ">\r\n"));
        server->start(host);
    }
    static void TearDownTestSuite() { server = nullptr; }
    ~Dovecot() override {
        if (HasFailure()) ADD_FAILURE() << server->log();
    }

    static std::string idOf(std::uint32_t uid) { return std::to_string(uid) + "@mail.example"; }

    Imap signedIn() {
        Imap client(recorder, host, server->port());
        EXPECT_EQ(client.connect(), std::nullopt);
        EXPECT_TRUE(client.command("LOGIN \"ann@home.example\" \"abcdefghijklmnop\""));
        return client;
    }

    static inline std::unique_ptr<DovecotServer> server;
    OpenSslConnector connector{{.text = server->trusted()}};
    doubles::RecordingConnector recorder{connector};
    doubles::MapKeyStore keys;
    Gmail gmail{keys, recorder, {host, server->port()}};
};

TEST_F(Dovecot, TellsTheIdsOfItsMessages) {
    Imap client = signedIn();
    const auto count = client.select(DovecotServer::allMail);
    ASSERT_TRUE(count) << count.failure().description();
    EXPECT_EQ(*count, 6);
    const auto ids = client.fetchMessageIDs();
    ASSERT_TRUE(ids) << ids.failure().description();
    EXPECT_EQ(ids->find("one@mail.example"), 1u);
    EXPECT_EQ(ids->find("two@mail.example"), 2u);
    EXPECT_EQ(ids->find("bare@mail.example"), 5u);
    EXPECT_EQ(ids->find("\xc3\xa4@mail.example"), 6u);
    EXPECT_EQ(ids->size(), 4u) << "the folded one is lost";
}

TEST_F(Dovecot, TellsThoseOfALargeMailboxToo) {
    Imap client = signedIn();
    ASSERT_TRUE(client.select("Many"));
    const auto ids = client.fetchMessageIDs();
    ASSERT_TRUE(ids) << ids.failure().description();
    ASSERT_EQ(ids->size(), many);
    for (std::uint32_t uid = 1; uid <= many; ++uid) ASSERT_EQ(ids->find(idOf(uid)), uid);
}

TEST_F(Dovecot, HasAnEmptyInbox) {
    Imap client = signedIn();
    const auto count = client.select(DovecotServer::inbox);
    ASSERT_TRUE(count) << count.failure().description();
    EXPECT_EQ(*count, 0);
    const auto ids = client.fetchMessageIDs();
    ASSERT_TRUE(ids) << ids.failure().description();
    EXPECT_EQ(ids->size(), 0u);
}

TEST_F(Dovecot, SaysNoInItsOwnWords) {
    Imap client = signedIn();
    const auto count = client.select("Nowhere");
    ASSERT_FALSE(count);
    EXPECT_TRUE(count.failure().description().starts_with(
        "Gmail said something unexpected: a002 NO Mailbox doesn't exist"))
        << count.failure().description();
}

TEST_F(Dovecot, IsSignedInToWithTheRightPasswordAlone) {
    EXPECT_EQ(gmail.testAppPassword({ann, Secret("abcd efgh ijkl mnop")}), std::nullopt);
    EXPECT_EQ(gmail.testAppPassword({ann, Secret("abcd efgh ijkl mnoq")}),
              "Gmail refused the sign-in: Gmail refused that app password. Check it was generated "
              "for this account and copied whole.");
}

TEST_F(Dovecot, KnowsNoLabelsAndFilesNothing) {
    gmail.saveAppPassword({ann, Secret("abcdefghijklmnop")});
    const auto filed = gmail.fileThroughGmail({.ids = {"one@mail.example"},
                                               .address = ann,
                                               .label = "Brindlet Junk",
                                               .removeInbox = true});
    EXPECT_EQ(filed.count, 0);
    EXPECT_TRUE(filed.error.value_or("").starts_with("Gmail said something unexpected: a004 BAD "))
        << filed.error.value_or("(none)");
}

TEST(DovecotElsewhere, IsNotTakenForTheHostAskedFor) {
    DovecotServer server;
    server.start("imap.mail.example");
    OpenSslConnector connector({.text = server.trusted()});
    Imap client(connector, host, server.port());
    const auto failure = client.connect();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->description(),
              "Couldn't reach Gmail: the server's certificate is for another host");
}

}  // namespace
}  // namespace brindlet
