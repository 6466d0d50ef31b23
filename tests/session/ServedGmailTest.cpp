#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "doubles/RecordingConnector.h"
#include "platform/linux/OpenSslStream.h"
#include "sample/GmailServer.h"
#include "sample/GmailSettings.h"
#include "session/MailWorld.h"

// The session with Gmail's own server, over TLS: the simulated one, which shares its mail with the
// simulated mail program.

namespace brindlet {
namespace {

using Strings = std::vector<std::string>;

constexpr const char* address = "robin@harbour.example";
constexpr const char* password = "abcdefghijklmnop";

/// Leads to the server of the test, wherever it is to lead.
class ToLoopback : public TlsConnector {
  public:
    explicit ToLoopback(const sample::GmailServer& server, const std::string& trusted)
        : connector_({.text = trusted}), port_(server.port()) {}
    std::shared_ptr<TlsStream> make(const std::string& host, std::uint16_t port) override {
        EXPECT_EQ(host + ':' + std::to_string(port), "imap.gmail.com:993");
        return recorder_.make("localhost", port_);
    }

  private:
    OpenSslConnector connector_;
    doubles::RecordingConnector recorder_{connector_};
    const std::uint16_t port_;
};

class ServedGmail : public testing::Test {
  protected:
    ServedGmail() {
        world.home.settings.accounts[world.account].gmail = true;
        all = world.home.addMailbox(world.account, "[Gmail]/All Mail");
        for (const auto* id : {"a@h", "b@h", "c@h"}) {
            const auto row =
                world.home.addMessage({.mailbox = all, .messageId = id, .labels = {world.mailbox}});
            if (std::string(id) != "c@h") world.list(row, id);
        }
        sample::GmailSettings settings;
        settings.passwords[address] = password;
        sample::writeGmailSettings(world.home.home(), settings);
    }

    /// Opens the session, connected with this password.
    AppState& open(const std::string& with = password) {
        // The home must stand before a server opens it.
        EXPECT_TRUE(world.home.finish());
        auto started = sample::GmailServer::start({world.home.home()});
        EXPECT_TRUE(started.server) << started.problem;
        server = std::move(started.server);
        connector = std::make_unique<ToLoopback>(*server, server->authority());
        world.connector = connector.get();
        world.doubles.keys.keep("app.brindlet.Brindlet.gmail", address, with);
        return world.openFinished();
    }

    MailWorld world;
    std::int64_t all = 0;
    std::unique_ptr<sample::GmailServer> server;
    std::unique_ptr<ToLoopback> connector;
};

TEST_F(ServedGmail, FilesByLabelAndTakesTheMailOutOfTheInbox) {
    const auto& state = open();
    EXPECT_TRUE(state.gmailConnected->contains(address));
    world.move();
    EXPECT_EQ(*state.moveError, std::nullopt);
    EXPECT_EQ(*state.moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_EQ(world.idsIn("INBOX"), Strings{"c@h"});
    EXPECT_EQ(world.idsIn("Brindlet Junk"), (Strings{"a@h", "b@h"}));
    EXPECT_EQ(world.idsIn("[Gmail]/All Mail"), (Strings{"a@h", "b@h", "c@h"}))
        << "nothing is ever deleted";
}

// The mail program finds what the server has filed. It can only tag, though, and says so.
TEST_F(ServedGmail, WhatWasFiledThePutBackFinds) {
    const auto& state = open();
    world.move();
    world.putAllBack();
    ASSERT_TRUE(*state.moveError);
    EXPECT_NE(
        (*state.moveError)->find("tagged the message with INBOX but left it in Brindlet Junk"),
        std::string::npos)
        << **state.moveError;
    EXPECT_EQ(world.idsIn("INBOX"), (Strings{"a@h", "c@h"}));
}

TEST_F(ServedGmail, APasswordThatIsRefusedMovesNothingAndSaysWhy) {
    const auto& state = open("wrongwrongwrongw");
    world.move();
    EXPECT_EQ(*state.moveError, "Brindlet isn't connected to robin@harbour.example yet.");
    EXPECT_EQ(world.idsIn("INBOX"), (Strings{"a@h", "b@h", "c@h"}));
    EXPECT_TRUE(*state.interrupted.pending) << "the rest can be moved later";
}

TEST_F(ServedGmail, AServerThatNobodyVouchesForHearsNoPassword) {
    auto settings = sample::readGmailSettings(world.home.home());
    settings->faults.certificate = sample::GmailCertificate::foreign;
    sample::writeGmailSettings(world.home.home(), *settings);
    const auto& state = open();
    world.move();
    EXPECT_EQ(*state.moveError, "Brindlet isn't connected to robin@harbour.example yet.");
    EXPECT_EQ(world.idsIn("Brindlet Junk"), Strings());
    const auto sentence =
        state.gmail()->testAppPassword({address, Secret(std::string_view(password))});
    ASSERT_TRUE(sentence);
    EXPECT_EQ(sentence->rfind("Couldn't reach Gmail: ", 0), 0u) << *sentence;
}

TEST_F(ServedGmail, APasswordIsTestedForReal) {
    const auto& state = open();
    EXPECT_EQ(
        state.gmail()->testAppPassword({address, Secret(std::string_view("abcd efgh ijkl mnop"))}),
        std::nullopt);
    EXPECT_EQ(state.gmail()->testAppPassword({address, Secret(std::string_view("nononono"))}),
              "Gmail refused the sign-in: Gmail refused that app password. Check it was generated "
              "for this account and copied whole.");
}

}  // namespace
}  // namespace brindlet
