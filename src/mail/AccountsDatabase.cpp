#include "mail/AccountsDatabase.h"

#include "base/Files.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "mail/IndexReader.h"

namespace brindlet {
namespace {

constexpr const char* suffixes[] = {"", "-wal", "-shm"};

constexpr const char* labelQuery = R"(    SELECT a.ZIDENTIFIER,
           COALESCE(NULLIF(a.ZACCOUNTDESCRIPTION, ''), p.ZACCOUNTDESCRIPTION),
           COALESCE(NULLIF(a.ZUSERNAME, ''), p.ZUSERNAME)
    FROM ZACCOUNT a LEFT JOIN ZACCOUNT p ON a.ZPARENTACCOUNT = p.Z_PK
    WHERE a.ZIDENTIFIER IS NOT NULL)";

AccountLabels readLabels(const std::string& database) {
    AccountLabels labels;
    IndexReader reader(database, labelQuery);
    while (reader.step()) {
        const auto key = uppercased(repairedUtf8(reader.bytes(0)));
        const auto description = reader.bytes(1);
        const auto label = description.empty() ? reader.bytes(2) : description;
        if (!label.empty()) labels[key] = repairedUtf8(label);
    }
    return labels;
}

}  // namespace

AccountLabels readAccountsDatabase(const std::string& home, const std::string& temporary) {
    const auto source = home + "/Library/Accounts/Accounts4.sqlite";
    if (!files::exists(source)) return {};
    const auto copy = temporary + "/brindlet-accounts.sqlite";
    for (const char* suffix : suffixes) {
        files::remove(copy + suffix);
        files::copy(source + suffix, copy + suffix);
    }
    const auto labels = readLabels(copy);
    for (const char* suffix : suffixes) files::remove(copy + suffix);
    return labels;
}

}  // namespace brindlet
