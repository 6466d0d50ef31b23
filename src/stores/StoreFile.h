#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Services.h"

/// What the stores that live in files have in common.
namespace brindlet {

class Directories;

/// The path of a store's file, the store directory being asked for now and so created. An empty
/// directory gives a path relative to the working directory.
std::string storeFile(const Directories& directories, std::string_view name);
std::string storeFile(const Services& services, std::string_view name);

/// Puts a file that cannot be decoded out of the way, to the same name with ".unreadable" behind
/// it. Fails without a word when something stands there already; the file is then overwritten by
/// the next save.
void moveUnreadableAside(const std::string& path);

/// Counts come from files that anyone may have edited, so a sum stops at the ends of its type.
std::int64_t saturatingSum(std::int64_t a, std::int64_t b);

}  // namespace brindlet
