#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "sample/MailPlan.h"
#include "sample/SampleFacts.h"

namespace brindlet::sample {

struct SampleOutcome {
    /// Whole only when there is no problem.
    SampleFacts facts;
    /// A finished sentence; empty when all went well.
    std::string problem;
};

/// Called now and then, on the calling thread or another, never twice at once.
using SampleProgress = std::function<void(std::size_t written, std::size_t all)>;

/// Makes a home folder with sample mail: "Library/Mail/V10" with its index and message files,
/// "Library/Accounts" with the system's account database (see SystemAccounts), and beside Library
/// the facts in "sample-facts.json" and the simulated mail program's settings in
/// "mail-program.json" (see MailSettings). The same options make the same bytes in every
/// message file and the same rows. A folder that already holds a Library is left alone.
///
/// Blocks; uses several threads for the message files.
SampleOutcome makeMailStore(const std::string& home, const SampleOptions& options,
                            const SampleProgress& progress);

}  // namespace brindlet::sample
