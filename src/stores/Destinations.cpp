#include "stores/Destinations.h"

#include "platform/UserDefaults.h"

namespace brindlet {
namespace {

constexpr std::string_view defaultsKey = "junkDestinations";

}  // namespace

Destinations::Destinations(Services services) : services_(services) {
    if (auto stored = services_.defaults.dictionary(defaultsKey)) byAccount.set(*std::move(stored));
}

void Destinations::set(const std::string& account, const std::string& destination) {
    byAccount.mutate([&](auto& destinations) { destinations[account] = destination; });
    services_.defaults.setDictionary(defaultsKey, *byAccount);
}

}  // namespace brindlet
