#include "models/training/Vocabulary.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brindlet::training {
namespace {

/// A power of two, several times the largest vocabulary.
constexpr std::size_t placeCount = std::size_t{1} << 19;

}  // namespace

void FeatureSurvey::count(const Features& features) {
    ++messages_;
    for (const Feature& feature : features.all) {
        Seen& seen = seen_[feature.key];
        if (seen.lastMessage == messages_) continue;
        seen.lastMessage = messages_;
        ++seen.times;
    }
}

std::vector<std::uint32_t> FeatureSurvey::chosen(std::uint32_t fewest, std::size_t most) const {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> counted;
    for (const auto& [key, seen] : seen_)
        if (seen.times >= fewest) counted.emplace_back(seen.times, key);
    // The map's order is its library's own; the keys settle every tie.
    std::ranges::sort(counted, [](const auto& one, const auto& other) {
        return one.first != other.first ? one.first > other.first : one.second < other.second;
    });
    std::vector<std::uint32_t> keys;
    for (const auto& [times, key] : counted) {
        if (keys.size() == most) break;
        keys.push_back(key);
    }
    return keys;
}

Vocabulary::Vocabulary(std::vector<std::uint32_t> keys)
    : keys_(std::move(keys)), places_(placeCount) {
    for (std::size_t number = 0; number < keys_.size(); ++number)
        places_[placeOf(keys_[number])] = {keys_[number], static_cast<std::uint32_t>(number)};
}

std::size_t Vocabulary::placeOf(std::uint32_t key) const {
    std::size_t place = key % placeCount;
    while (places_[place].number != none && places_[place].key != key)
        place = (place + 1) % placeCount;
    return place;
}

void Vocabulary::scale(std::vector<KnownFeature>& features, std::size_t start, float length) {
    float squares = 0;
    for (std::size_t i = start; i < features.size(); ++i)
        squares += features[i].value * features[i].value;
    if (squares == 0) return;
    const float factor = length / std::sqrt(squares);
    for (std::size_t i = start; i < features.size(); ++i) features[i].value *= factor;
}

}  // namespace brindlet::training
