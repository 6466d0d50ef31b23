#include <gtest/gtest.h>

#include <filesystem>

#include "base/Files.h"
#include "mail/MailHome.h"

namespace brindlet {
namespace {

using testing::contents;
using testing::MailHome;

void putIndex(const MailHome& home, const std::string& version) {
    MailHome::put(home.mail() + '/' + version + "/MailData/Envelope Index", "x");
}

TEST(MailRoot, VersionsSortByNumberAndNotByText) {
    MailHome home;
    putIndex(home, "V9");
    putIndex(home, "V10");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/V10");
}

TEST(MailRoot, ANameWithoutANumberCountsAsZeroAndComesLast) {
    MailHome home;
    putIndex(home, "Vault");
    putIndex(home, "V2");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/V2");
}

TEST(MailRoot, NegativeNumbersComeAfterZero) {
    MailHome home;
    putIndex(home, "V-3");
    putIndex(home, "Vault");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/Vault");
}

TEST(MailRoot, APlusSignIsPartOfTheNumber) {
    MailHome home;
    putIndex(home, "V10");
    putIndex(home, "V+11");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/V+11");
}

TEST(MailRoot, AVersionWithoutAnIndexIsPassedOver) {
    MailHome home;
    putIndex(home, "V9");
    files::createDirectories(home.mail() + "/V11/MailData");
    MailHome::put(home.mail() + "/V12", "a file");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/V9");
}

TEST(MailRoot, OtherNamesAreNotLookedAt) {
    MailHome home;
    putIndex(home, "v10");
    putIndex(home, "PersistenceV10");
    EXPECT_EQ(home.store.mailRoot(), std::nullopt);
}

TEST(MailRoot, WithoutAMailFolderThereIsNone) {
    MailHome home;
    EXPECT_EQ(home.store.mailRoot(), std::nullopt);
    EXPECT_FALSE(home.store.canReadIndex());
    home.store.touchMailData();
}

TEST(MailRoot, NoneIsKeptEvenWhenMailAppears) {
    MailHome home;
    EXPECT_EQ(home.store.mailRoot(), std::nullopt);
    putIndex(home, "V10");
    EXPECT_EQ(home.store.mailRoot(), std::nullopt);
    EXPECT_FALSE(home.store.canReadIndex());
    EXPECT_EQ(MailStore(home.world.services()).mailRoot(), home.mail() + "/V10");
}

TEST(MailRoot, TheFirstAnswerIsKept) {
    MailHome home;
    putIndex(home, "V9");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/V9");
    putIndex(home, "V10");
    EXPECT_EQ(home.store.mailRoot(), home.mail() + "/V9");
}

TEST(CanReadIndex, NeedsOneByte) {
    MailHome home;
    putIndex(home, "V10");
    EXPECT_TRUE(home.store.canReadIndex());
    MailHome::put(home.index(), "");
    EXPECT_FALSE(home.store.canReadIndex());
    files::remove(home.index());
    EXPECT_FALSE(home.store.canReadIndex());
    // A folder opens, but does not read.
    files::createDirectories(home.index());
    EXPECT_FALSE(home.store.canReadIndex());
}

TEST(TouchMailData, ChangesNothingAndMindsNothingMissing) {
    MailHome home;
    putIndex(home, "V10");
    const auto before = contents(home.world.directories.home());
    home.store.touchMailData();
    EXPECT_EQ(contents(home.world.directories.home()), before);
    std::filesystem::remove_all(home.root());
    home.store.touchMailData();
}

}  // namespace
}  // namespace brindlet
