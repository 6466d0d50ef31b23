#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/EnumInfo.h"
#include "doubles/Doubles.h"
#include "doubles/RecordingConnector.h"
#include "doubles/SentBytes.h"
#include "gmail/GmailWorld.h"
#include "platform/linux/OpenSslStream.h"
#include "sample/GmailServer.h"
#include "sample/GmailSettings.h"
#include "sample/HandmadeHome.h"

// Filing over TLS with the simulated server, while that misbehaves.

namespace brindlet {
namespace {

using sample::GmailCertificate;
using Faults = sample::GmailSettings::Faults;

constexpr const char* notConnected = "Brindlet isn't connected to ann@home.example yet.";

class FaultyServer : public testing::Test {
  protected:
    FaultyServer() {
        const auto account = home.addAccount("Home", ann);
        home.settings.accounts[account].gmail = true;
        const auto inbox = home.addMailbox(account, "INBOX");
        const auto all = home.addMailbox(account, "[Gmail]/All Mail");
        home.addMailbox(account, "Receipts");
        for (const auto* id : {"one@x", "two@x"})
            home.addMessage({.mailbox = all, .messageId = id, .labels = {inbox}});
        EXPECT_TRUE(home.finish());
        misbehave([](Faults&) {});
        auto started = sample::GmailServer::start({home.home()});
        EXPECT_TRUE(started.server) << started.problem;
        server = std::move(started.server);
        connector = std::make_unique<OpenSslConnector>(TlsAuthorities{.text = server->authority()});
        recorder = std::make_unique<doubles::RecordingConnector>(*connector);
        keys.keep(service, ann, password);
    }

    /// From the next connection on.
    template <class Set>
    void misbehave(const Set& set) {
        sample::GmailSettings settings;
        settings.passwords[ann] = password;
        set(settings.faults);
        EXPECT_TRUE(sample::writeGmailSettings(home.home(), settings));
    }

    Gmail gmail() { return Gmail(keys, *recorder, {"localhost", server->port()}); }
    Gmail::Filed file() {
        return gmail().fileThroughGmail({{"one@x", "two@x", "three@x"}, ann, "Receipts", true});
    }

    doubles::TemporaryDirectories directories;
    sample::HandmadeHome home{directories.home()};
    std::unique_ptr<sample::GmailServer> server;
    std::unique_ptr<OpenSslConnector> connector;
    std::unique_ptr<doubles::RecordingConnector> recorder;
    MapKeyStore keys;
};

TEST_F(FaultyServer, MayBeHardToReadAsLongAsItIsRight) {
    EXPECT_EQ(file(), (Gmail::Filed{2, {}}));
    misbehave([](Faults& faults) { faults.splitsEveryByte = true; });
    EXPECT_EQ(file(), (Gmail::Filed{2, {}}));
    misbehave([](Faults& faults) { faults.hugeLine = 3'000'000; });
    EXPECT_EQ(file(), (Gmail::Filed{2, {}}));
    misbehave([](Faults& faults) { faults.invalidUtf8 = true; });
    EXPECT_EQ(file(), (Gmail::Filed{2, {}}));
}

TEST_F(FaultyServer, HearsNoPasswordWhenItDoesNotProveToBeGmail) {
    const std::string secret = "neverneverneverr";
    keys.keep(service, ann, secret);
    for (const auto certificate : allCases<GmailCertificate>()) {
        if (certificate == GmailCertificate::good) continue;
        SCOPED_TRACE(rawValue(certificate));
        misbehave([&](Faults& faults) { faults.certificate = certificate; });
        const auto sentence = gmail().testAppPassword(signIn(secret)).value_or("none");
        EXPECT_TRUE(sentence.starts_with("Couldn't reach Gmail: the server")) << sentence;
        EXPECT_EQ(file(), (Gmail::Filed{0, notConnected}));
    }
    for (const auto& bytes : doubles::SentBytes::everything())
        EXPECT_EQ(bytes.find(secret), std::string::npos);
}

TEST_F(FaultyServer, IsQuotedWhenItRefuses) {
    struct Row {
        sample::ImapFaults faults;
        std::string beginning;
    };
    const std::string unexpected = "Gmail said something unexpected: ";
    const std::string gone = "Couldn't reach Gmail: server closed the connection";
    const Row rows[] = {
        {{.no = 1}, notConnected},
        {{.no = 2}, unexpected + "a002 NO "},
        {{.no = 3}, unexpected + "a003 NO "},
        {{.no = 4}, unexpected + "a004 NO "},
        {{.no = 5}, unexpected + "a005 NO "},
        {{.bad = 1}, notConnected},
        {{.bad = 3}, unexpected + "a003 BAD "},
        {{.bye = 0}, notConnected},
        {{.bye = 1}, notConnected},
        {{.bye = 2}, gone},
        {{.bye = 3}, gone},
        {{.bye = 5}, gone},
    };
    for (const auto& row : rows) {
        misbehave([&](sample::ImapFaults& faults) { faults = row.faults; });
        const auto filed = file();
        EXPECT_EQ(filed.count, 0);
        EXPECT_TRUE(filed.error.value_or("none").starts_with(row.beginning))
            << filed.error.value_or("none") << ", not " << row.beginning;
    }
}

TEST_F(FaultyServer, MayHangUpAtAnyPoint) {
    for (const bool abruptly : {false, true}) {
        bool whole = false;
        for (std::int64_t sent = 0; !whole; sent += 11) {
            SCOPED_TRACE(sent);
            ASSERT_LT(sent, 10'000);
            misbehave([&](Faults& faults) {
                faults.closesAfterSent = sent;
                faults.closesAbruptly = abruptly;
            });
            const auto filed = file();
            whole = filed.count == 2;
            const auto sentence = filed.error.value_or("");
            EXPECT_TRUE(whole ? sentence.empty()
                              : sentence == notConnected ||
                                    sentence.starts_with("Couldn't reach Gmail: "))
                << sentence;
        }
    }
}

}  // namespace
}  // namespace brindlet
