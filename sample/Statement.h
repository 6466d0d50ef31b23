#pragma once

#include <cstdint>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace brindlet::sample {

/// A prepared statement that is run many times. Parameters count from 1 and stay bound, columns
/// from 0. The database must outlive it.
class Statement {
  public:
    Statement(sqlite3* database, const char* text);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// False when the text could not be prepared.
    explicit operator bool() const { return statement_ != nullptr; }

    Statement& number(int index, std::int64_t value);
    /// A 0 becomes NULL.
    Statement& reference(int index, std::int64_t row);
    /// The text must live until the statement has run. An empty one becomes NULL where `orNull`.
    Statement& text(int index, std::string_view value, bool orNull = false);

    /// Runs a statement without rows.
    bool run();
    /// The new row's id, or 0 on failure.
    std::int64_t insert();

    /// Moves to the next row; at the end the statement is ready to be run again.
    bool step();
    /// Leaves the rows that are still to come.
    void reset();
    std::int64_t integer(int column) const;
    bool isNull(int column) const;
    /// Valid until the next step.
    std::string_view bytes(int column) const;

  private:
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace brindlet::sample
