#include "platform/linux/SocketConnection.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cerrno>

#include "platform/LoopbackServer.h"
#include "platform/posix/NetworkWords.h"

namespace brindlet {
namespace {

/// A place on the loopback where nobody listens: it was given to a server that has gone.
HostAddress deserted(int family = AF_INET) {
    return LoopbackServer([](int) {}, family).address();
}

TEST(ConnectToAny, TakesTheFirstThatAnswers) {
    const Interrupt interrupt;
    LoopbackServer server([](int socket) { ::send(socket, "!", 1, MSG_NOSIGNAL); });
    const HostAddress addresses[] = {deserted(), deserted(AF_INET6), server.address()};
    const auto connection = connectToAny(addresses, interrupt);
    ASSERT_TRUE(connection.socket);
    EXPECT_EQ(connection.failure, std::nullopt);
    ASSERT_TRUE(interrupt.wait(connection.socket.get(), POLLIN));
    char byte = 0;
    EXPECT_EQ(::recv(connection.socket.get(), &byte, 1, 0), 1);
}

/// An address of a family that no system knows fails before anything is sent.
TEST(ConnectToAny, TellsTheFirstReasonWhenAllFail) {
    const Interrupt interrupt;
    HostAddress unknown = deserted();
    unknown.bytes.ss_family = 0xff;
    const HostAddress refusedFirst[] = {deserted(), unknown};
    EXPECT_EQ(connectToAny(refusedFirst, interrupt).failure, "the server refused the connection");
    const HostAddress refusedLast[] = {unknown, deserted()};
    EXPECT_EQ(connectToAny(refusedLast, interrupt).failure, describeSocketError(EAFNOSUPPORT));
    EXPECT_EQ(connectToAny({}, interrupt).failure,
              "there is no way to the server over the network");
}

TEST(ConnectToAny, WaitsForNoAddressLongerThanItsHeadStart) {
    const Interrupt interrupt;
    const FullServer full;
    LoopbackServer server([](int) {});
    const HostAddress addresses[] = {full.address(), full.address(), server.address()};
    EXPECT_TRUE(connectToAny(addresses, interrupt, 1).socket);
    server.waitForConversations(1);
}

}  // namespace
}  // namespace brindlet
