#include "ToolWorld.h"

#include <cstdlib>
#include <filesystem>

#include "base/Files.h"

namespace brindlet::tools {
namespace {

class NoConnection : public TlsStream {
  public:
    Failure connect() override { return "cancelled"; }
    Failure send(std::string_view) override { return "cancelled"; }
    Received receive(std::size_t) override { return {{}, true, "cancelled"}; }
    void cancel() override {}
};

}  // namespace

ToolDirectories::ToolDirectories(std::string home, std::optional<std::string> store)
    : home_(std::move(home)) {
    // mkdtemp makes it for its owner alone.
    std::string pattern = std::filesystem::temp_directory_path() / "brindlet-tool-XXXXXX";
    if (const char* const made = ::mkdtemp(pattern.data())) temporary_ = made;
    store_ = store.value_or(temporary_ + "/store");
}

ToolDirectories::~ToolDirectories() {
    std::error_code ignored;
    if (!temporary_.empty()) std::filesystem::remove_all(temporary_, ignored);
}

std::shared_ptr<TlsStream> NoConnections::make(const std::string&, std::uint16_t) {
    return std::make_shared<NoConnection>();
}

std::string ToolDirectories::store() const {
    files::createDirectories(store_);
    return store_;
}

}  // namespace brindlet::tools
