#pragma once

#include <string_view>
#include <vector>

namespace brindlet {

/// One alternative of the veto's expression, a nested one included, and a subject that it protects.
struct VetoSample {
    std::string_view alternative;
    std::string_view subject;
    /// The subject would be protected without this alternative too: another one always matches with
    /// it.
    bool covered = false;
};

/// In the order in which the alternatives begin.
const std::vector<VetoSample>& vetoSamples();

}  // namespace brindlet
