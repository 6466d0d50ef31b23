#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "models/embedded/Features.h"

namespace brindlet::training {

/// A feature that is taught, by its number, with its share in its block.
struct KnownFeature {
    std::size_t number = 0;
    float value = 0;
};

/// Chooses what is worth teaching: how often each feature was seen.
class FeatureSurvey {
  public:
    /// Each feature counts once a message.
    void count(const Features& features);

    /// The keys of those seen `fewest` times or more, the most frequent first, no more than `most`.
    std::vector<std::uint32_t> chosen(std::uint32_t fewest, std::size_t most) const;

  private:
    struct Seen {
        std::uint32_t times = 0;
        std::uint32_t lastMessage = 0;
    };
    std::unordered_map<std::uint32_t, Seen> seen_;
    std::uint32_t messages_ = 0;
};

/// The features that are taught, numbered from 0.
class Vocabulary {
  public:
    explicit Vocabulary(std::vector<std::uint32_t> keys);

    const std::vector<std::uint32_t>& keys() const { return keys_; }

    /// The known features for which `keep()` holds, which is asked for all, each block scaled to
    /// its length as the model does it.
    template <class F>
    std::vector<KnownFeature> known(const Features& features, F&& keep) const {
        std::vector<KnownFeature> out;
        out.reserve(features.all.size());
        std::size_t at = 0;
        for (const auto& block : features.blocks) {
            const std::size_t start = out.size();
            for (; at < block.end; ++at) {
                const std::size_t number = find(features.all[at].key);
                if (keep() && number != none) out.push_back({number, features.all[at].value});
            }
            scale(out, start, block.length);
        }
        return out;
    }

  private:
    static constexpr std::uint32_t none = 0xFFFFFFFF;
    struct Place {
        std::uint32_t key = 0;
        std::uint32_t number = none;
    };

    std::size_t placeOf(std::uint32_t key) const;
    std::size_t find(std::uint32_t key) const { return places_[placeOf(key)].number; }
    static void scale(std::vector<KnownFeature>& features, std::size_t start, float length);

    std::vector<std::uint32_t> keys_;
    std::vector<Place> places_;
};

}  // namespace brindlet::training
