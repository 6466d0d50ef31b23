#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet {

/// A store directory of the test's own, with its files at hand.
struct StoreWorld : doubles::World {
    std::string file(std::string_view name) const {
        return directories.store() + "/" + std::string(name);
    }
    bool has(std::string_view name) const { return files::exists(file(name)); }
    std::string text(std::string_view name) const {
        const auto bytes = files::read(file(name));
        EXPECT_TRUE(bytes) << name << " is not there";
        return bytes.value_or("");
    }
    void put(std::string_view name, std::string_view text) const {
        ASSERT_TRUE(files::write(file(name), text));
    }
    /// From now on nothing can be written: the store lies below a regular file.
    void makeUnwritable() {
        const auto blocker = directories.root() + "/blocker";
        ASSERT_TRUE(files::write(blocker, ""));
        directories.setStore(blocker + "/store");
    }
};

/// Counts the announcements of an observable.
template <class T>
class Signals {
  public:
    explicit Signals(T& observable) : subscription_(observable.subscribe([this] { ++count_; })) {}
    int count() const { return count_; }

  private:
    int count_ = 0;
    Subscription subscription_;
};

/// Ways in which any file of a store can be damaged, whatever is in it.
inline constexpr std::string_view damagedTexts[] = {
    "",      " ",   "null", "7",        "\"text\"",         "true",
    "{",     "[",   "[{]",  "{\"a\":}", "nonsense",         "[] []",
    "{} {}", "[],", "{}x",  "[]\xff",   "{\"\xc3\x28\":1}", "\xef\xbb\xbf[]",
};

}  // namespace brindlet
