#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace brindlet {

/// One statement over one private copy of the index, opened read-only and closed again with the
/// object. A failure to open or to prepare shows as a statement without rows, and so does an error
/// on the way: it ends the rows as if there were no more. One thread.
class IndexReader {
  public:
    IndexReader(const std::string& database, const std::string& query);
    ~IndexReader();
    IndexReader(const IndexReader&) = delete;
    IndexReader& operator=(const IndexReader&) = delete;

    /// Binds the statement's one parameter.
    void bind(std::int64_t value);
    /// Moves to the next row; false when there is none.
    bool step();

    std::int64_t integer(int column) const;
    /// The column's bytes up to a NUL, as they stand; a NULL is empty. Valid until the next step.
    std::string_view bytes(int column) const;

  private:
    sqlite3* database_ = nullptr;
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace brindlet
