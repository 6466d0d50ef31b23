#include "mail/IndexReader.h"

#include <sqlite3.h>

namespace brindlet {

IndexReader::IndexReader(const std::string& database, const std::string& query) {
    if (sqlite3_open_v2(database.c_str(), &database_, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        return;
    sqlite3_prepare_v2(database_, query.c_str(), -1, &statement_, nullptr);
}

IndexReader::~IndexReader() {
    if (statement_) sqlite3_finalize(statement_);
    sqlite3_close(database_);  // a failed open leaves a handle too
}

void IndexReader::bind(std::int64_t value) {
    if (statement_) sqlite3_bind_int64(statement_, 1, value);
}

bool IndexReader::step() {
    return statement_ && sqlite3_step(statement_) == SQLITE_ROW;
}

std::int64_t IndexReader::integer(int column) const {
    return sqlite3_column_int64(statement_, column);
}

std::string_view IndexReader::bytes(int column) const {
    const unsigned char* const text = sqlite3_column_text(statement_, column);
    return text ? reinterpret_cast<const char*>(text) : std::string_view();
}

}  // namespace brindlet
