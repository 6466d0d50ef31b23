#include "sample/Statement.h"

#include <sqlite3.h>

namespace brindlet::sample {

Statement::Statement(sqlite3* database, const char* text) : database_(database) {
    if (sqlite3_prepare_v2(database, text, -1, &statement_, nullptr) != SQLITE_OK)
        statement_ = nullptr;
}

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

Statement& Statement::number(int index, std::int64_t value) {
    sqlite3_bind_int64(statement_, index, value);
    return *this;
}

Statement& Statement::reference(int index, std::int64_t row) {
    if (row == 0)
        sqlite3_bind_null(statement_, index);
    else
        sqlite3_bind_int64(statement_, index, row);
    return *this;
}

Statement& Statement::text(int index, std::string_view value, bool orNull) {
    if (orNull && value.empty())
        sqlite3_bind_null(statement_, index);
    else
        sqlite3_bind_text64(statement_, index, value.data(), value.size(), SQLITE_STATIC,
                            SQLITE_UTF8);
    return *this;
}

bool Statement::run() {
    if (!statement_) return false;
    const int result = sqlite3_step(statement_);
    sqlite3_reset(statement_);
    return result == SQLITE_DONE;
}

std::int64_t Statement::insert() {
    return run() ? sqlite3_last_insert_rowid(database_) : 0;
}

bool Statement::step() {
    if (!statement_) return false;
    if (sqlite3_step(statement_) == SQLITE_ROW) return true;
    sqlite3_reset(statement_);
    return false;
}

void Statement::reset() {
    sqlite3_reset(statement_);
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(statement_, column);
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

std::string_view Statement::bytes(int column) const {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return text ? std::string_view(
                      text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)))
                : std::string_view();
}

}  // namespace brindlet::sample
