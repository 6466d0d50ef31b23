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
constexpr std::size_t rowBytes = (std::size_t{1} << featureBits) * labelCount;
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

/// Few weights are far larger than the rest; clipping them keeps the steps of all others fine.
float largestKept(const std::vector<float>& rows) {
    std::vector<float> sizes;
    for (const float weight : rows)
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
    if (bytes.size() != headerBytes + rowBytes + checksumBytes) return std::nullopt;
    std::string_view end = bytes.substr(bytes.size() - checksumBytes);
    if (checksum(bytes.substr(0, bytes.size() - checksumBytes)) != taken<std::uint64_t>(end))
        return std::nullopt;
    if (!bytes.starts_with(magic)) return std::nullopt;
    bytes.remove_prefix(magic.size());
    if (taken<std::uint32_t>(bytes) != weightsVersion) return std::nullopt;
    if (taken<std::uint32_t>(bytes) != featureBits) return std::nullopt;
    if (taken<std::uint32_t>(bytes) != labelCount) return std::nullopt;

    Weights weights;
    weights.scale_ = std::bit_cast<float>(taken<std::uint32_t>(bytes));
    for (float& bias : weights.biases_) bias = std::bit_cast<float>(taken<std::uint32_t>(bytes));
    weights.rows_ = bytes.data();
    return weights;
}

std::string Weights::written(const std::vector<float>& rows, const LabelScores& biases) {
    constexpr float steps = std::numeric_limits<std::int8_t>::max();
    const float scale = largestKept(rows) / steps;
    std::string out(magic);
    out.reserve(headerBytes + rowBytes + checksumBytes);
    append(out, weightsVersion);
    append(out, static_cast<std::uint32_t>(featureBits));
    append(out, static_cast<std::uint32_t>(labelCount));
    append(out, std::bit_cast<std::uint32_t>(scale));
    for (const float bias : biases) append(out, std::bit_cast<std::uint32_t>(bias));
    for (const float weight : rows)
        out += static_cast<char>(std::clamp(std::nearbyint(weight / scale), -steps, steps));
    append(out, checksum(out));
    return out;
}

LabelScores Weights::probabilities(std::span<const Feature> features) const {
    LabelScores sums{};
    for (const Feature& feature : features) {
        const char* row = rows_ + feature.row * labelCount;
        for (std::size_t label = 0; label < labelCount; ++label)
            sums[label] += feature.value * static_cast<float>(static_cast<std::int8_t>(row[label]));
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
