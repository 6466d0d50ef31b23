#pragma once

#include <string>

#include "doubles/Doubles.h"
#include "sample/SampleMailStore.h"

namespace brindlet::sample {

/// A home folder with sample mail, removed at its end.
struct SampleHome {
    explicit SampleHome(const SampleOptions& options);

    std::string home() const { return world.directories.home(); }
    std::string dataRoot() const;
    std::string indexPath() const;

    doubles::World world;
    SampleOutcome outcome;

    /// One of 2,000 messages, made once for all tests of the program.
    static SampleHome& shared();
};

}  // namespace brindlet::sample
