#include "base/Files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using std::filesystem::perms;

struct FilesTest : testing::Test {
    doubles::TemporaryDirectories directories;
    std::string path(const std::string& name) const { return directories.root() + "/" + name; }
    void make(const std::string& name, std::string_view bytes) const {
        ASSERT_TRUE(files::write(path(name), bytes));
    }
};

TEST_F(FilesTest, WritesAndReadsWholeFiles) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{4095},
                                   std::size_t{4096}, std::size_t{4097}, std::size_t{3'000'000}}) {
        const std::string bytes(size, '\n');
        make("file", bytes);
        EXPECT_TRUE(files::read(path("file")) == bytes) << size;
    }
}

TEST_F(FilesTest, WritingOverwritesALongerFile) {
    make("file", "a long old content");
    make("file", "new");
    EXPECT_EQ(files::read(path("file")), "new");
}

TEST_F(FilesTest, ReadsFilesThatTellNoSize) {
    const auto bytes = files::read("/proc/self/status");
    ASSERT_TRUE(bytes);
    EXPECT_NE(bytes->find("Name:"), std::string::npos);
}

TEST_F(FilesTest, WhatIsNoFileIsNotRead) {
    EXPECT_EQ(files::read(path("missing")), std::nullopt);
    EXPECT_EQ(files::read(directories.root()), std::nullopt);
    EXPECT_EQ(files::read(""), std::nullopt);
}

TEST_F(FilesTest, WritingBelowAFileOrOverADirectoryFails) {
    make("file", "x");
    EXPECT_FALSE(files::write(path("file/below"), "y"));
    EXPECT_FALSE(files::write(directories.root(), "y"));
    EXPECT_FALSE(files::write(path("missing/file"), "y"));
    EXPECT_EQ(files::read(path("file")), "x");
}

TEST_F(FilesTest, TellsFilesFromDirectoriesFromNothing) {
    make("file", "");
    EXPECT_TRUE(files::exists(path("file")));
    EXPECT_FALSE(files::isDirectory(path("file")));
    EXPECT_TRUE(files::exists(directories.root()));
    EXPECT_TRUE(files::isDirectory(directories.root()));
    EXPECT_FALSE(files::exists(path("missing")));
    EXPECT_FALSE(files::isDirectory(path("missing")));
}

TEST_F(FilesTest, RemovesFilesAlone) {
    make("file", "");
    EXPECT_TRUE(files::remove(path("file")));
    EXPECT_FALSE(files::exists(path("file")));
    EXPECT_FALSE(files::remove(path("file")));
    EXPECT_FALSE(files::remove(directories.root()));
}

TEST_F(FilesTest, CreatesDirectoriesWithTheirParents) {
    EXPECT_TRUE(files::createDirectories(path("a/b//c")));
    EXPECT_TRUE(files::isDirectory(path("a/b/c")));
    EXPECT_TRUE(files::createDirectories(path("a/b/c/")));
    make("file", "");
    EXPECT_FALSE(files::createDirectories(path("file")));
    EXPECT_FALSE(files::createDirectories(path("file/below")));
    EXPECT_FALSE(files::createDirectories(""));
}

TEST_F(FilesTest, ListsAllEntriesButTheDots) {
    files::createDirectories(path("d/sub"));
    make("d/.hidden", "");
    make("d/file", "");
    auto names = files::list(path("d"));
    ASSERT_TRUE(names);
    std::sort(names->begin(), names->end());
    EXPECT_EQ(*names, (std::vector<std::string>{".hidden", "file", "sub"}));
    EXPECT_EQ(files::list(path("missing")), std::nullopt);
    EXPECT_EQ(files::list(path("d/file")), std::nullopt);
}

TEST_F(FilesTest, ReadsAPrefixIntoTheBufferGiven) {
    make("file", "0123456789");
    std::string buffer(4, '.');
    EXPECT_EQ(files::readPrefix(path("file"), buffer), 4u);
    EXPECT_EQ(buffer, "0123");
    buffer.assign(12, '.');
    EXPECT_EQ(files::readPrefix(path("file"), buffer), 10u);
    EXPECT_EQ(buffer, "0123456789..");
    EXPECT_EQ(files::readPrefix(path("missing"), buffer), std::nullopt);
    EXPECT_EQ(files::readPrefix(directories.root(), buffer), 0u);
    EXPECT_EQ(files::readPrefix(path("file"), {}), 0u);
}

TEST_F(FilesTest, APrefixOfAPipeThatNobodyWritesIsEmpty) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    std::string buffer(4, '.');
    EXPECT_EQ(files::readPrefix(path("pipe"), buffer), 0u);
}

TEST_F(FilesTest, WalksAllThatLiesBelowAndFollowsNoLinkButTheRoot) {
    struct Collector : files::TreeVisitor {
        std::string at;
        std::vector<std::string> seen;
        void directory(const std::string& directory) override { at = directory; }
        void entry(std::string_view name) override { seen.push_back(at + '/' + std::string(name)); }
        std::vector<std::string> sorted() {
            std::sort(seen.begin(), seen.end());
            return seen;
        }
    };
    files::createDirectories(path("d/.sub/deep"));
    make("d/.sub/deep/file", "");
    make("d/file", "");
    std::filesystem::create_directory_symlink(path("d"), path("d/loop"));
    std::filesystem::create_directory_symlink(path("d"), path("link"));
    Collector collector, throughLink, none;
    EXPECT_TRUE(files::walk(path("d"), collector));
    EXPECT_EQ(collector.sorted(),
              (std::vector{path("d/.sub"), path("d/.sub/deep"), path("d/.sub/deep/file"),
                           path("d/file"), path("d/loop")}));
    EXPECT_TRUE(files::walk(path("link"), throughLink));
    EXPECT_EQ(throughLink.seen.size(), 5u);
    EXPECT_FALSE(files::walk(path("missing"), none));
    EXPECT_FALSE(files::walk(path("d/file"), none));
    EXPECT_TRUE(none.seen.empty());
}

TEST_F(FilesTest, ReplacingLeavesTheOldOrTheNew) {
    EXPECT_TRUE(files::replace(path("file"), "first"));
    EXPECT_TRUE(files::replace(path("file"), "second"));
    EXPECT_EQ(files::read(path("file")), "second");
    EXPECT_FALSE(files::exists(path("file.new")));
    EXPECT_FALSE(files::replace(directories.root(), "x"));
    EXPECT_FALSE(files::exists(directories.root() + ".new"));
    files::createDirectories(path("file.new"));
    EXPECT_FALSE(files::replace(path("file"), "third"));
    EXPECT_EQ(files::read(path("file")), "second");
}

TEST_F(FilesTest, CopiesForTheOwnerAlone) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{10}, std::size_t{300'000}}) {
        const std::string bytes(size, 'b');
        make("from", bytes);
        std::filesystem::permissions(path("from"), perms::all);
        ASSERT_TRUE(files::copy(path("from"), path("to"))) << size;
        EXPECT_TRUE(files::read(path("to")) == bytes) << size;
        EXPECT_EQ(std::filesystem::status(path("to")).permissions(),
                  perms::owner_read | perms::owner_write);
        files::remove(path("to"));
    }
}

TEST_F(FilesTest, CopiesFilesThatTellNoSize) {
    ASSERT_TRUE(files::copy("/proc/self/cmdline", path("to")));
    const auto bytes = files::read(path("to"));
    ASSERT_TRUE(bytes);
    EXPECT_NE(bytes->find("base_tests"), std::string::npos);
}

TEST_F(FilesTest, CopyingRefusesWhatExistsAndWhatIsNoFile) {
    make("from", "new");
    make("to", "old");
    EXPECT_FALSE(files::copy(path("from"), path("to")));
    EXPECT_EQ(files::read(path("to")), "old");
    EXPECT_FALSE(files::copy(path("missing"), path("other")));
    EXPECT_FALSE(files::copy(directories.root(), path("other")));
    EXPECT_FALSE(files::exists(path("other")));
}

TEST_F(FilesTest, MovesToAFreePlace) {
    make("from", "x");
    EXPECT_TRUE(files::moveWithoutReplacing(path("from"), path("to")));
    EXPECT_FALSE(files::exists(path("from")));
    EXPECT_EQ(files::read(path("to")), "x");
}

TEST_F(FilesTest, MovingRefusesToReplace) {
    make("from", "new");
    make("to", "old");
    EXPECT_FALSE(files::moveWithoutReplacing(path("from"), path("to")));
    EXPECT_EQ(files::read(path("from")), "new");
    EXPECT_EQ(files::read(path("to")), "old");
    EXPECT_FALSE(files::moveWithoutReplacing(path("missing"), path("other")));
    EXPECT_FALSE(files::moveWithoutReplacing(path("from"), path("nowhere/other")));
    EXPECT_EQ(files::read(path("from")), "new");
}

TEST_F(FilesTest, AWriterJoinsItsPieces) {
    const std::string small(1000, 's'), large(400'000, 'l');
    std::string all;
    files::Writer writer(path("file"));
    for (int i = 0; i < 300; ++i) {
        writer.append(small);
        all += small;
        if (i % 100 != 50) continue;
        writer.append(large);
        all += large;
    }
    EXPECT_TRUE(writer.finish());
    EXPECT_TRUE(writer.finish());
    EXPECT_TRUE(files::read(path("file")) == all);
}

TEST_F(FilesTest, AWriterThatGoesWritesWhatIsLeft) {
    {
        files::Writer writer(path("file"));
        writer.append("left");
    }
    EXPECT_EQ(files::read(path("file")), "left");
}

TEST_F(FilesTest, AWriterTellsOfAFailureAtTheEnd) {
    files::Writer nowhere(path("missing/file"));
    nowhere.append("x");
    EXPECT_FALSE(nowhere.finish());
    // A device that is always full: small pieces fail at the end, large ones on the way.
    files::Writer full("/dev/full");
    full.append("x");
    EXPECT_FALSE(full.finish());
    files::Writer flooded("/dev/full");
    for (int i = 0; i < 4; ++i) flooded.append(std::string(200'000, 'x'));
    EXPECT_FALSE(flooded.finish());
    EXPECT_FALSE(files::write("/dev/full", "x"));
}

}  // namespace
}  // namespace brindlet
