#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The system's own database of accounts in a sample home, which knows the mail accounts by their
/// identifiers and calls them by names of its own.
namespace brindlet::sample {

/// One row; its number is its place in the list, counted from 1. What is none is NULL.
struct SystemAccount {
    std::optional<std::string_view> identifier;
    std::optional<std::string_view> description;
    std::optional<std::string_view> userName;
    /// The number of the row that stands for the whole service, mail and all else; 0 for none.
    int parent = 0;
};

/// Those of the sample accounts, and what else the system keeps there. One account goes by the
/// mail program's name for it, which only its parent has; one by its parent's user name; one by the
/// last name but one that the system noted, as it has three rows.
std::vector<SystemAccount> systemAccounts();

/// Writes "Library/Accounts/Accounts4.sqlite" below the home. The rows stand in the -wal file, as
/// they do while the system runs. False when it cannot be written.
bool writeSystemAccounts(const std::string& home);

}  // namespace brindlet::sample
