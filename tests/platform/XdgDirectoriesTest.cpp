#include "platform/linux/XdgDirectories.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "platform/Environments.h"

namespace brindlet {
namespace {

using std::filesystem::perms;

struct XdgDirectoriesTest : testing::Test {
    doubles::TemporaryDirectories directories;
    const std::string root = directories.root();
    const std::string homePath = root + "/person";

    XdgDirectories make(std::map<std::string, std::string> variables = {}) const {
        variables.try_emplace("HOME", homePath);
        return XdgDirectories(environmentOf(std::move(variables)));
    }
    static perms mode(const std::string& path) {
        return std::filesystem::status(path).permissions();
    }
};

TEST_F(XdgDirectoriesTest, HomeIsTheVariablesElseTheDatabases) {
    EXPECT_EQ(make().home(), homePath);
    EXPECT_EQ(make({{"HOME", homePath + "//"}}).home(), homePath);
    const auto byDatabase = XdgDirectories(environmentOf({})).home();
    EXPECT_EQ(byDatabase.substr(0, 1), "/");
    EXPECT_EQ(make({{"HOME", ""}}).home(), byDatabase);
    EXPECT_EQ(make({{"HOME", "relative"}}).home(), byDatabase);
}

TEST_F(XdgDirectoriesTest, TheTemporaryFolderLiesInTheCache) {
    EXPECT_EQ(make().temporary(), homePath + "/.cache/brindlet");
    EXPECT_EQ(make({{"XDG_CACHE_HOME", root + "/c/"}}).temporary(), root + "/c/brindlet");
    EXPECT_EQ(make({{"XDG_CACHE_HOME", ""}}).temporary(), homePath + "/.cache/brindlet");
    EXPECT_EQ(make({{"XDG_CACHE_HOME", "c"}}).temporary(), homePath + "/.cache/brindlet");
    EXPECT_EQ(mode(root + "/c/brindlet"), perms::owner_all);
}

TEST_F(XdgDirectoriesTest, TheTemporaryFolderIsMadeAgainAndClosedToOthers) {
    const auto xdg = make();
    std::filesystem::remove_all(homePath);
    const auto path = xdg.temporary();
    EXPECT_EQ(mode(path), perms::owner_all);
    std::filesystem::permissions(path, perms::all);
    EXPECT_EQ(mode(xdg.temporary()), perms::owner_all);
}

TEST_F(XdgDirectoriesTest, TheStoreLiesInTheDataFolder) {
    EXPECT_EQ(make().store(), homePath + "/.local/share/Brindlet");
    EXPECT_TRUE(files::isDirectory(homePath + "/.local/share/Brindlet"));
    EXPECT_EQ(make({{"XDG_DATA_HOME", root + "/d"}}).store(), root + "/d/Brindlet");
    EXPECT_EQ(make({{"XDG_DATA_HOME", "d"}}).store(), homePath + "/.local/share/Brindlet");
}

TEST_F(XdgDirectoriesTest, AGivenStoreIsTakenWhateverItSays) {
    EXPECT_EQ(make({{"BRINDLET_STORE", root + "/a/b/c"}}).store(), root + "/a/b/c");
    EXPECT_TRUE(files::isDirectory(root + "/a/b/c"));
    EXPECT_EQ(make({{"BRINDLET_STORE", ""}, {"XDG_DATA_HOME", root + "/unused"}}).store(), "");
    EXPECT_FALSE(files::exists(root + "/unused"));
    EXPECT_FALSE(files::exists(homePath + "/.local"));
}

TEST_F(XdgDirectoriesTest, TheStoreIsMadeAtEachAsking) {
    const auto xdg = make({{"BRINDLET_STORE", root + "/s"}});
    EXPECT_FALSE(files::exists(root + "/s"));
    xdg.store();
    std::filesystem::remove_all(root + "/s");
    xdg.store();
    EXPECT_TRUE(files::isDirectory(root + "/s"));
}

TEST_F(XdgDirectoriesTest, AStoreThatCannotBeMadeIsNamedAllTheSame) {
    ASSERT_TRUE(files::write(root + "/file", ""));
    EXPECT_EQ(make({{"BRINDLET_STORE", root + "/file/below"}}).store(), root + "/file/below");
    EXPECT_FALSE(files::exists(root + "/file/below"));
}

TEST_F(XdgDirectoriesTest, SettingsLieInTheConfigurationFolder) {
    EXPECT_EQ(make().configuration(), homePath + "/.config/brindlet");
    EXPECT_EQ(make({{"XDG_CONFIG_HOME", root + "/k"}}).configuration(), root + "/k/brindlet");
    EXPECT_EQ(mode(root + "/k/brindlet"), perms::owner_all);
}

}  // namespace
}  // namespace brindlet
