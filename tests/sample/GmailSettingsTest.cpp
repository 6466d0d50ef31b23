#include "sample/GmailSettings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet::sample {
namespace {

TEST(GmailSettings, AreReadAsTheyWereWritten) {
    const doubles::TemporaryDirectories directories;
    const std::string home = directories.home();
    EXPECT_FALSE(readGmailSettings(home));
    GmailSettings settings;
    settings.passwords = {{"a@gmail.example", "abcd efgh"}, {"b@gmail.example", ""}};
    settings.faults.delay = 1.5;
    settings.faults.splitsEveryByte = true;
    settings.faults.closesAfterSent = 0;
    settings.faults.closesAfterReceived = 12;
    settings.faults.closesAbruptly = true;
    settings.faults.no = 1;
    settings.faults.bad = 2;
    settings.faults.bye = 0;
    settings.faults.hugeLine = 4;
    settings.faults.invalidUtf8 = true;
    settings.faults.certificate = GmailCertificate::wrongHost;
    ASSERT_TRUE(writeGmailSettings(home, settings));
    const auto read = readGmailSettings(home);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->passwords, settings.passwords);
    EXPECT_EQ(read->faults.delay, 1.5);
    EXPECT_TRUE(read->faults.splitsEveryByte);
    EXPECT_EQ(read->faults.closesAfterSent, 0);
    EXPECT_EQ(read->faults.closesAfterReceived, 12);
    EXPECT_TRUE(read->faults.closesAbruptly);
    EXPECT_EQ(read->faults.no, 1);
    EXPECT_EQ(read->faults.bad, 2);
    EXPECT_EQ(read->faults.bye, 0);
    EXPECT_EQ(read->faults.hugeLine, 4);
    EXPECT_TRUE(read->faults.invalidUtf8);
    EXPECT_EQ(read->faults.certificate, GmailCertificate::wrongHost);
}

TEST(GmailSettings, AnAbsentKeyLetsNothingGoWrong) {
    const doubles::TemporaryDirectories directories;
    files::write(gmailSettingsPath(directories.home()), R"({"passwords":{"a":"b"}})");
    const auto settings = readGmailSettings(directories.home());
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->faults.no, 0);
    EXPECT_FALSE(settings->faults.bye);
    EXPECT_FALSE(settings->faults.closesAfterSent);
    EXPECT_EQ(settings->faults.certificate, GmailCertificate::good);
}

TEST(GmailSettings, AMisspeltKeyFailsTheFile) {
    const doubles::TemporaryDirectories directories;
    for (const std::string text :
         {R"({"password":{}})", R"({"faults":{"delays":1}})", R"({"faults":{"delay":"1"}})",
          R"({"faults":{"certificate":"best"}})", "", "[]", R"({"passwords":{}} x)"}) {
        files::write(gmailSettingsPath(directories.home()), text);
        EXPECT_FALSE(readGmailSettings(directories.home())) << text;
    }
}

TEST(AppPassword, IsSixteenLettersInFourGroupsAndNeverTheSame) {
    const std::string password = makeAppPassword();
    EXPECT_EQ(password.size(), 19u);
    for (const std::size_t at : {4u, 9u, 14u}) EXPECT_EQ(password[at], ' ') << at;
    EXPECT_EQ(std::count_if(password.begin(), password.end(),
                            [](char c) { return c >= 'a' && c <= 'z'; }),
              16);
    EXPECT_NE(makeAppPassword(), password);
}

TEST(AppPassword, CountsWithoutItsBlanks) {
    GmailSettings settings;
    settings.passwords = {{"Me@Gmail.example", "abcd efgh"}, {"none@gmail.example", "  "}};
    const struct {
        std::string address, password;
        bool good;
    } rows[] = {
        {"me@gmail.example", "abcdefgh", true}, {"ME@gmail.example", "ab cdef gh", true},
        {"me@gmail.example", "abcdefg", false}, {"me@gmail.example", "ABCDEFGH", false},
        {"me@gmail.example", "", false},        {"you@gmail.example", "abcdefgh", false},
        {"none@gmail.example", "", false},      {"none@gmail.example", "  ", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isAppPassword(settings, row.address, row.password), row.good)
            << row.address << ' ' << row.password;
}

}  // namespace
}  // namespace brindlet::sample
