#include "session/MoveRoute.h"

#include <gtest/gtest.h>

#include "session/MoveStages.h"

#include "doubles/Doubles.h"

namespace brindlet {
namespace {

MailAccount account(std::vector<std::pair<std::string, MailFolder::Role>> folders) {
    MailAccount made;
    for (auto& [name, role] : folders) made.folders.push_back({1, name, 1, role});
    return made;
}

const auto gmail =
    account({{"INBOX", MailFolder::Role::inbox}, {"[Gmail]/Spam", MailFolder::Role::junk}});
const auto other = account({{"INBOX", MailFolder::Role::inbox}, {"Junk", MailFolder::Role::junk}});

TEST(MoveRoute, IsTheMenuForLabelsAloneAndOnlyWhenAllowed) {
    EXPECT_EQ(moveRoute(gmail, "Brindlet Junk", true), MoveRoute::menu);
    EXPECT_EQ(moveRoute(gmail, "Brindlet Junk", false), MoveRoute::script);
    EXPECT_EQ(moveRoute(gmail, "[Gmail]/Spam", true), MoveRoute::script);
    EXPECT_EQ(moveRoute(other, "Brindlet Junk", true), MoveRoute::script);
}

TEST(MoveDestination, IsTheInboxForRescuedMailAndWhereJunkGoesForTheRest) {
    EXPECT_EQ(moveDestination(other, false, std::nullopt), "Junk");
    EXPECT_EQ(moveDestination(other, false, "INBOX"), "INBOX");
    EXPECT_EQ(moveDestination(other, true, "Junk"), "INBOX");
    EXPECT_EQ(moveDestination(account({}), true, std::nullopt), "INBOX");
    EXPECT_EQ(moveDestination(account({}), false, std::nullopt), "Brindlet Junk");
    EXPECT_EQ(moveDestination(gmail, false, std::nullopt), "Brindlet Junk");
}

TEST(MoveWords, GroupTheirNumbers) {
    const doubles::FixedLocale locale;
    EXPECT_EQ(moves::found(1234, 5678, locale), "Finding 1,234 / 5,678");
    EXPECT_EQ(moves::moved(1234, "Junk", locale), "Moved 1,234 into Junk");
    EXPECT_EQ(moves::movedPart(1234, 5678, locale),
              "Moved 1,234 of 5,678 - the rest are still listed");
    EXPECT_EQ(moves::movedBeforeStop(1234, locale), "Moved 1,234 before it stopped");
    EXPECT_EQ(moves::someLeft(1234, 5678, locale), "Moved 1,234, 5,678 still to go");
    EXPECT_EQ(moves::finished(1234, locale), "Finished - 1,234 more moved");
    EXPECT_EQ(moves::putBack(1234, "INBOX", locale), "Put 1,234 back in INBOX");
    EXPECT_EQ(moves::findingIn("INBOX"), "Finding them in INBOX");
    EXPECT_EQ(moves::puttingBackInto("INBOX"), "Putting back into INBOX");
}

}  // namespace
}  // namespace brindlet
