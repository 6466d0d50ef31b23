#include "sample/SystemAccounts.h"

#include <sqlite3.h>

#include <memory>

#include "base/Files.h"
#include "sample/SampleAccounts.h"
#include "sample/Statement.h"

namespace brindlet::sample {
namespace {

constexpr const char* schema =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = OFF;"
    "CREATE TABLE ZACCOUNT (Z_PK INTEGER PRIMARY KEY, ZPARENTACCOUNT INTEGER,"
    " ZACCOUNTDESCRIPTION VARCHAR, ZIDENTIFIER VARCHAR, ZUSERNAME VARCHAR)";

constexpr const char* insertion =
    "INSERT INTO ZACCOUNT (Z_PK, ZPARENTACCOUNT, ZACCOUNTDESCRIPTION, ZIDENTIFIER, ZUSERNAME)"
    " VALUES (?, ?, ?, ?, ?)";

bool insertAll(sqlite3* database) {
    Statement insert(database, insertion);
    if (!insert) return false;
    int row = 0;
    for (const SystemAccount& account : systemAccounts()) {
        const auto bind = [&](int index, const std::optional<std::string_view>& text) {
            insert.text(index, text.value_or(""), !text);
        };
        insert.number(1, ++row).reference(2, account.parent);
        bind(3, account.description);
        bind(4, account.identifier);
        bind(5, account.userName);
        if (!insert.run()) return false;
    }
    return true;
}

}  // namespace

std::vector<SystemAccount> systemAccounts() {
    const auto all = sampleAccounts();
    const SampleAccount &first = all[0], &gmail = all[1], &exchange = all[2], &local = all[3];
    return {
        {"0D7A61C4-83B2-4F5E-A1C9-7E2B940D5F38", first.name, first.address},
        {first.id, std::nullopt, "", 1},
        {"41F8B3E6-C05D-4A97-8E13-D9264B7A0C5F", "", gmail.address},
        {gmail.id, "", std::nullopt, 3},
        {exchange.id, "Office", "r.ashdown"},
        {exchange.id, "Exchange", "r.ashdown"},
        {exchange.id, "", std::nullopt},
        {local.id, local.name, std::nullopt},
        {std::nullopt, "Holidays", "robin"},
        {"9C2E5D70-1B84-4F36-A7D8-305F6E91B2C4", "Game room", "robin.a"},
    };
}

bool writeSystemAccounts(const std::string& home) {
    const std::string folder = home + "/Library/Accounts";
    if (!files::createDirectories(folder)) return false;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2((folder + "/Accounts4.sqlite").c_str(), &opened,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
    // Without the setting, closing would empty the -wal file and remove it.
    return result == SQLITE_OK &&
           sqlite3_db_config(opened, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr) == SQLITE_OK &&
           sqlite3_exec(opened, schema, nullptr, nullptr, nullptr) == SQLITE_OK &&
           insertAll(opened);
}

}  // namespace brindlet::sample
