#include "models/embedded/Weights.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>

namespace brindlet {
namespace {

constexpr std::string_view magic = "BRNDWGHT";
constexpr std::size_t labelCount = learnedLabels.size();
constexpr std::size_t placeBytes = 1 + labelCount;
constexpr std::size_t tableBytes = Weights::places * placeBytes;
/// How far from its first place a feature may stand.
constexpr std::size_t reach = 16;
constexpr std::size_t headerBytes = magic.size() + 3 * 4 + 4 + 4 * labelCount;
constexpr std::size_t checksumBytes = 8;

template <class Number>
void append(std::string& out, Number number) {
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        out += static_cast<char>(number >> (8 * i) & 0xFF);
}

template <class Number>
Number taken(std::string_view& bytes) {
    Number number = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        number |= static_cast<Number>(static_cast<Number>(static_cast<unsigned char>(bytes[i]))
                                      << (8 * i));
    bytes.remove_prefix(sizeof(Number));
    return number;
}

std::size_t firstPlace(std::uint32_t key) {
    return static_cast<std::size_t>(std::uint64_t{key} * Weights::places >> 32);
}
char markOf(std::uint32_t key) {
    const std::uint32_t low = key & 0xFF;
    return static_cast<char>(low == 0 ? 1 : low);
}

/// The weights behind the key's mark; null for a feature that was not taught.
const char* findRow(const char* table, std::uint32_t key) {
    std::size_t place = firstPlace(key);
    for (std::size_t tries = 0; tries < reach; ++tries) {
        const char* found = table + place * placeBytes;
        if (*found == markOf(key)) return found + 1;
        if (*found == 0) return nullptr;
        if (++place == Weights::places) place = 0;
    }
    return nullptr;
}

/// Few weights are far larger than the rest; clipping them keeps the steps of all others fine.
float largestKept(const std::vector<Weights::Row>& rows) {
    std::vector<float> sizes;
    for (const auto& row : rows)
        for (const float weight : row.weights)
            if (weight != 0) sizes.push_back(std::abs(weight));
    if (sizes.empty()) return 1;
    const auto place = sizes.end() - 1 - static_cast<std::ptrdiff_t>(sizes.size() / 2000);
    std::ranges::nth_element(sizes, place);
    return *place;
}

}  // namespace

std::uint64_t Weights::checksum(std::string_view bytes) {
    // Eight bytes a step, which is what keeps the start of the program short.
    std::uint64_t sum = 0x9E3779B97F4A7C15 ^ bytes.size();
    while (bytes.size() >= 8)
        sum = std::rotl((sum ^ taken<std::uint64_t>(bytes)) * 0xff51afd7ed558ccd, 29);
    for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return sum ^ sum >> 32;
}

std::optional<Weights> Weights::open(std::string_view bytes) {
    if (bytes.size() != headerBytes + tableBytes + checksumBytes) return std::nullopt;
    std::string_view end = bytes.substr(bytes.size() - checksumBytes);
    if (checksum(bytes.substr(0, bytes.size() - checksumBytes)) != taken<std::uint64_t>(end))
        return std::nullopt;
    if (!bytes.starts_with(magic)) return std::nullopt;
    bytes.remove_prefix(magic.size());
    if (taken<std::uint32_t>(bytes) != weightsVersion) return std::nullopt;
    if (taken<std::uint32_t>(bytes) != places) return std::nullopt;
    if (taken<std::uint32_t>(bytes) != labelCount) return std::nullopt;

    Weights weights;
    weights.scale_ = std::bit_cast<float>(taken<std::uint32_t>(bytes));
    for (float& bias : weights.biases_) bias = std::bit_cast<float>(taken<std::uint32_t>(bytes));
    weights.places_ = bytes.data();
    return weights;
}

std::string Weights::written(const std::vector<Row>& rows, const LabelScores& biases) {
    constexpr float steps = std::numeric_limits<std::int8_t>::max();
    const float scale = largestKept(rows) / steps;
    std::string out(magic);
    out.reserve(headerBytes + tableBytes + checksumBytes);
    append(out, weightsVersion);
    append(out, static_cast<std::uint32_t>(places));
    append(out, static_cast<std::uint32_t>(labelCount));
    append(out, std::bit_cast<std::uint32_t>(scale));
    for (const float bias : biases) append(out, std::bit_cast<std::uint32_t>(bias));

    std::string table(tableBytes, '\0');
    for (const Row& row : rows) {
        std::size_t place = firstPlace(row.key);
        std::size_t tries = 0;
        // A neighbour with the same mark would be taken for this one, or this one for it.
        while (tries < reach && table[place * placeBytes] != 0 &&
               table[place * placeBytes] != markOf(row.key)) {
            ++tries;
            if (++place == places) place = 0;
        }
        char* found = table.data() + place * placeBytes;
        if (tries == reach || *found != 0) continue;
        *found = markOf(row.key);
        for (const float weight : row.weights)
            *++found = static_cast<char>(std::clamp(std::nearbyint(weight / scale), -steps, steps));
    }
    out += table;
    append(out, checksum(out));
    return out;
}

LabelScores Weights::probabilities(const Features& features) const {
    LabelScores sums{};
    std::size_t at = 0;
    for (const auto& block : features.blocks) {
        LabelScores blockSums{};
        float squares = 0;
        for (; at < block.end; ++at) {
            const Feature& feature = features.all[at];
            const char* row = findRow(places_, feature.key);
            if (row == nullptr) continue;
            squares += feature.value * feature.value;
            for (std::size_t label = 0; label < labelCount; ++label)
                blockSums[label] +=
                    feature.value * static_cast<float>(static_cast<signed char>(row[label]));
        }
        if (squares == 0) continue;
        const float factor = block.length / std::sqrt(squares);
        for (std::size_t label = 0; label < labelCount; ++label)
            sums[label] += factor * blockSums[label];
    }
    for (std::size_t label = 0; label < labelCount; ++label)
        sums[label] = sums[label] * scale_ + biases_[label];
    const float largest = *std::ranges::max_element(sums);
    float total = 0;
    for (float& sum : sums) total += sum = std::exp(sum - largest);
    for (float& sum : sums) sum /= total;
    return sums;
}

}  // namespace brindlet
