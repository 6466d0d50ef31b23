#include "models/embedded/Concepts.h"

#include <algorithm>

#include "models/embedded/Tokens.h"

namespace brindlet {

Concepts::Concepts(std::span<const std::string_view> table) : count_(table.size()) {
    for (std::size_t group = 0; group < table.size(); ++group) {
        std::string_view rest = table[group];
        while (!rest.empty()) {
            const std::string_view phrase = rest.substr(0, rest.find('|'));
            rest.remove_prefix(std::min(rest.size(), phrase.size() + 1));
            if (phrase.ends_with('*')) {
                add(hashed(hashStart, phrase), group);
                continue;
            }
            std::uint64_t key = hashStart;
            for (const std::string_view word : tokens(phrase, longestPhrase))
                key = extended(key, word);
            add(key, group);
        }
    }
}

void Concepts::add(std::uint64_t key, std::size_t group) {
    Place& place = table_[placeOf(key)];
    if (place.group != none) return;  // a phrase of two groups keeps its first
    place = {key, static_cast<std::uint8_t>(group)};
}

}  // namespace brindlet
