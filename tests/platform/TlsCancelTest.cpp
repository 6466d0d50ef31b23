#include <gtest/gtest.h>
#include <openssl/ssl.h>
#include <sys/socket.h>

#include <memory>
#include <thread>

#include "platform/TlsWorld.h"

// Where a cancel does not end what blocks, these tests never end.

namespace brindlet {
namespace {

TEST(TlsCancel, BeforeTheConnectionItComesToNothing) {
    const auto stream = TlsWorld().streamBy(lookUpHost);
    stream->cancel();
    EXPECT_EQ(stream->connect(), "cancelled");
    EXPECT_EQ(stream->send("a001 NOOP\r\n"), "cancelled");
    EXPECT_EQ(stream->receive(1).failure, "cancelled");
}

TEST(TlsCancel, EndsALookUpThatNeverAnswers) {
    struct Gates {
        Gate asked, released, gone;
    };
    const auto gates = std::make_shared<Gates>();
    auto stream = TlsWorld().streamBy([gates](const std::string&, std::uint16_t) {
        gates->asked.raise();
        gates->released.waitFor(1);
        gates->gone.raise();
        return HostLookup{.addresses = {}, .failure = "too late"};
    });
    TlsStream::Failure failure;
    std::thread client([&] { failure = stream->connect(); });
    gates->asked.waitFor(1);
    stream->cancel();
    client.join();
    EXPECT_EQ(failure, "cancelled");
    stream = nullptr;
    gates->released.raise();  // its thread has outlived the connection
    gates->gone.waitFor(1);
}

TEST(TlsCancel, EndsAConnectionThatNobodyTakesUp) {
    const FullServer full;
    // The thread of a look-up may outlive the test.
    const auto asked = std::make_shared<Gate>();
    const auto stream =
        TlsWorld().streamBy([asked, address = full.address()](const std::string&, std::uint16_t) {
            asked->raise();
            return HostLookup{.addresses = {address}, .failure = {}};
        });
    TlsStream::Failure failure;
    std::thread client([&] { failure = stream->connect(); });
    asked->waitFor(1);
    stream->cancel();
    client.join();
    EXPECT_EQ(failure, "cancelled");
}

TEST(TlsCancel, EndsAHandshakeThatIsNotAnswered) {
    Gate asked;
    LoopbackServer listener([&](int socket) {
        char byte = 0;
        if (::recv(socket, &byte, 1, 0) == 1) asked.raise();
        while (::recv(socket, &byte, 1, 0) == 1) {
        }
    });
    const auto stream = TlsWorld().streamTo(listener);
    TlsStream::Failure failure;
    std::thread client([&] { failure = stream->connect(); });
    asked.waitFor(1);
    stream->cancel();
    client.join();
    EXPECT_EQ(failure, "cancelled");
    listener.waitForConversations(1);  // the server learns of it
}

TEST(TlsCancel, EndsAReceiveAndSaysGoodbye) {
    const TlsWorld world;
    // Whether it comes before the wait or during it is up to the machine: so, often.
    for (int i = 0; i < 20; ++i) {
        Locked<int> goodbye{0};
        LoopbackServer listener(overTls(world.server(), [&](SSL& ssl) {
            say(ssl, "* OK\r\n");
            hearAll(ssl);
            goodbye.set(SSL_get_shutdown(&ssl) & SSL_RECEIVED_SHUTDOWN);
        }));
        const auto stream = world.streamTo(listener);
        ASSERT_EQ(stream->connect(), std::nullopt);
        Gate greeted;
        TlsStream::Received received;
        std::thread client([&] {
            receiveExactly(*stream, 6);
            greeted.raise();
            received = stream->receive(1024);
        });
        greeted.waitFor(1);
        stream->cancel();
        client.join();
        EXPECT_EQ(received.failure, "cancelled");
        EXPECT_FALSE(received.ended);
        EXPECT_EQ(received.bytes, "");
        listener.waitForConversations(1);
        EXPECT_EQ(goodbye.get(), SSL_RECEIVED_SHUTDOWN);
    }
}

TEST(TlsCancel, EndsASendThatNobodyReads) {
    const TlsWorld world;
    Gate begun, over;
    LoopbackServer listener(overTls(world.server(), [&](SSL& ssl) {
        hear(ssl, 1);
        begun.raise();
        over.waitFor(1);
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    TlsStream::Failure failure;
    std::thread client([&] { failure = stream->send(std::string(64 * 1024 * 1024, 'x')); });
    begun.waitFor(1);
    stream->cancel();
    client.join();
    over.raise();
    EXPECT_EQ(failure, "cancelled");
}

TEST(TlsCancel, IsTheWayToCloseAndNothingTheSecondTime) {
    const TlsWorld world;
    Locked<int> goodbye{0};
    LoopbackServer listener(overTls(world.server(), [&](SSL& ssl) {
        hearAll(ssl);
        goodbye.set(SSL_get_shutdown(&ssl) & SSL_RECEIVED_SHUTDOWN);
    }));
    const auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    stream->cancel();
    stream->cancel();
    listener.waitForConversations(1);
    EXPECT_EQ(goodbye.get(), SSL_RECEIVED_SHUTDOWN);
    EXPECT_EQ(stream->send("a001 NOOP\r\n"), "cancelled");
    EXPECT_EQ(stream->receive(1).failure, "cancelled");
}

TEST(TlsCancel, ADroppedConnectionIsACancelledOne) {
    const TlsWorld world;
    LoopbackServer listener(overTls(world.server(), [&](SSL& ssl) { hearAll(ssl); }));
    auto stream = world.streamTo(listener);
    ASSERT_EQ(stream->connect(), std::nullopt);
    stream = nullptr;
    listener.waitForConversations(1);
}

}  // namespace
}  // namespace brindlet
