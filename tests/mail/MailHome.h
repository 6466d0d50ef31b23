#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "doubles/Doubles.h"
#include "mail/MailStore.h"

struct sqlite3;

namespace brindlet::testing {

/// The account that the tests file their mail under.
inline constexpr std::string_view account = "0A1B2C3D-0000-4000-8000-00000000000f";

/// A database of the test's own, written through SQLite like the mail program does.
class IndexWriter {
  public:
    explicit IndexWriter(const std::string& path);
    ~IndexWriter();
    IndexWriter(const IndexWriter&) = delete;
    IndexWriter& operator=(const IndexWriter&) = delete;

    /// Runs statements; a failure fails the test.
    void run(const std::string& sql);
    /// Creates the tables that a reader needs.
    void createTables();

  private:
    sqlite3* database_ = nullptr;
};

/// A home directory with mail data in it, and a store that reads it.
struct MailHome {
    MailHome();

    std::string mail() const { return world.directories.home() + "/Library/Mail"; }
    std::string root() const { return mail() + "/V10"; }
    std::string index() const { return root() + "/MailData/Envelope Index"; }
    std::string copy() const { return world.directories.temporary() + "/brindlet-index.db"; }
    /// Creates the folders above the index and opens it, with its tables.
    void makeIndex(const std::string& sql);
    /// Writes a file, its folders included.
    static void put(const std::string& path, std::string_view bytes);
    std::string putMessage(const std::string& relative, std::string_view bytes) const;

    doubles::World world;
    MailStore store;
};

/// The content of every file below a directory, by relative path; a folder counts as empty text.
std::map<std::string, std::string> contents(const std::string& directory);

}  // namespace brindlet::testing
