#include <gtest/gtest.h>

#include "InProcess.h"
#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet::osascript {
namespace {

struct ScriptFiles : ::testing::Test {
    /// Runs a script with the file's path as its argument, known as `p`.
    std::string run(const std::string& body) {
        return resultOf("on run argv\nset p to item 1 of argv\n" + body + "\nend run", {path});
    }

    const doubles::TemporaryDirectories directories;
    const std::string path = directories.temporary() + "/file";
};

TEST_F(ScriptFiles, AWholeFileIsRead) {
    files::write(path, "ä\nb");
    EXPECT_EQ(run("set f to open for access (POSIX file p)\n"
                  "set t to read f as «class utf8»\n"
                  "close access f\n"
                  "return t"),
              "ä\nb");
}

TEST_F(ScriptFiles, ReadingAtTheEndIsAnError) {
    files::write(path, "");
    EXPECT_EQ(run("set f to open for access (POSIX file p)\nread f as «class utf8»"),
              "(-39) End of file error.");
    files::write(path, "x");
    EXPECT_EQ(run("set f to open for access (POSIX file p)\n"
                  "set t to read f as «class utf8»\nread f as «class utf8»"),
              "(-39) End of file error.");
}

TEST_F(ScriptFiles, AMissingFileIsAnErrorUnlessItIsToBeWritten) {
    EXPECT_EQ(run("open for access (POSIX file p)"), "(-43) File " + path + " wasn’t found.");
    EXPECT_EQ(run("open for access (POSIX file p) with write permission"), "1");
    EXPECT_EQ(files::read(path), "");
}

TEST_F(ScriptFiles, OneFileIsOpenForWritingOnce) {
    const std::string open = "open for access (POSIX file p) with write permission\n";
    EXPECT_EQ(run("set a to " + open + open), "(-49) File " + path + " is already open.");
    EXPECT_EQ(run("set a to " + open + "close access a\n" + open), "2");
}

TEST_F(ScriptFiles, WritingStartsAtTheFrontAndGoesOnFromThere) {
    files::write(path, "0123456789");
    run("set f to open for access (POSIX file p) with write permission\n"
        "write \"ab\" to f as «class utf8»\n"
        "write (\"c\" & 1) to f as «class utf8»");
    EXPECT_EQ(files::read(path), "abc1456789");
}

TEST_F(ScriptFiles, CuttingAFileBringsTheMarkBack) {
    files::write(path, "0123456789");
    run("set f to open for access (POSIX file p) with write permission\n"
        "write \"abcdef\" to f as «class utf8»\n"
        "set eof f to 2\n"
        "write \"X\" to f as «class utf8»");
    EXPECT_EQ(files::read(path), "abX");
}

TEST_F(ScriptFiles, LengtheningAFileLeavesTheMark) {
    run("set f to open for access (POSIX file p) with write permission\n"
        "set eof f to 3\n"
        "write \"X\" to f as «class utf8»");
    EXPECT_EQ(files::read(path), std::string("X\0\0", 3));
}

TEST_F(ScriptFiles, WhatIsNotOpenCannotBeUsed) {
    EXPECT_EQ(run("close access 7"), "(-38) File not open.");
    EXPECT_EQ(run("read 7 as «class utf8»"), "(-38) File not open.");
    EXPECT_EQ(run("write \"x\" to 7 as «class utf8»"), "(-38) File not open.");
    EXPECT_EQ(run("set eof 7 to 0"), "(-38) File not open.");
}

TEST_F(ScriptFiles, AFileThatIsOpenForReadingAloneCannotBeWritten) {
    files::write(path, "x");
    EXPECT_EQ(run("set f to open for access (POSIX file p)\nwrite \"y\" to f as «class utf8»"),
              "(-54) File " + path + " couldn’t be written.");
    EXPECT_EQ(run("set f to open for access (POSIX file p)\nset eof f to 0"),
              "(-54) File " + path + " couldn’t be written.");
}

TEST_F(ScriptFiles, ADirectoryCannotBeOpenedForWriting) {
    EXPECT_EQ(resultOf("open for access (POSIX file \"" + directories.temporary() +
                       "\") with write permission"),
              "(-54) File " + directories.temporary() + " couldn’t be opened.");
}

}  // namespace
}  // namespace brindlet::osascript
