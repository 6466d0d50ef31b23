#include <atomic>
#include <cstdlib>
#include <new>

#include <malloc.h>

#include "gmail/GmailWorld.h"

// Memory that is given back must not hold a password any more. So this program looks into every
// block that is freed, and counts those that do.

namespace brindlet {
namespace {

std::atomic<bool> watching = false;
std::atomic<int> leftovers = 0;

void freeWatched(void* block) {
    if (block && watching) {
        const std::string_view bytes(static_cast<const char*>(block), ::malloc_usable_size(block));
        if (bytes.find(password) != std::string_view::npos) ++leftovers;
    }
    std::free(block);
}

}  // namespace
}  // namespace brindlet

void* operator new(std::size_t size) {
    if (void* const block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    brindlet::freeWatched(block);
}
void operator delete(void* block, std::size_t) noexcept {
    brindlet::freeWatched(block);
}

namespace brindlet {
namespace {

/// A server that takes everything and keeps none of it.
class AgreeableStream : public TlsStream {
  public:
    Failure connect() override { return std::nullopt; }
    Failure send(std::string_view bytes) override {
        tag_ = bytes.substr(0, bytes.find(' '));
        return std::nullopt;
    }
    Received receive(std::size_t) override {
        if (tag_.empty()) return {"* OK\r\n", false, {}};
        return {tag_ + " OK\r\n", false, {}};
    }
    void cancel() override {}

  private:
    std::string tag_;
};

class AgreeableConnector : public TlsConnector {
  public:
    std::shared_ptr<TlsStream> make(const std::string&, std::uint16_t) override {
        return std::make_shared<AgreeableStream>();
    }
};

/// A safe whose one secret is always there.
class OneKey : public KeyStore {
  public:
    bool has(const std::string&, const std::string&) override { return true; }
    std::optional<Secret> read(const std::string&, const std::string&) override {
        return std::optional<Secret>(password);
    }
    void save(const std::string&, const std::string&, const Secret& secret) override {
        saved = secret.text() == password;
    }
    void forget(const std::string&, const std::string&) override {}

    bool saved = false;
};

TEST(WipedPasswords, NoneIsLeftInMemoryThatIsGivenBack) {
    OneKey keys;
    AgreeableConnector connector;
    Gmail gmail(keys, connector);
    leftovers = 0;
    watching = true;
    {
        const auto typed = signIn("abcd efgh ijkl mnop");
        EXPECT_EQ(gmail.testAppPassword(typed), std::nullopt);
        gmail.saveAppPassword(typed);
        EXPECT_EQ(gmail.testAppPassword(signIn(password)), std::nullopt);
        EXPECT_TRUE(gmail.readAppPassword(ann));
        EXPECT_EQ(gmail.fileThroughGmail({{"one@x"}, ann, "x", true}).error,
                  "None of those messages are in this account.");
    }
    watching = false;
    EXPECT_TRUE(keys.saved);
    EXPECT_EQ(leftovers, 0);
}

TEST(WipedPasswords, OneThatIsLeftIsNoticed) {
    leftovers = 0;
    watching = true;
    { const std::string careless = std::string(40, ' ') + password; }
    watching = false;
    EXPECT_EQ(leftovers, 1);
}

}  // namespace
}  // namespace brindlet
