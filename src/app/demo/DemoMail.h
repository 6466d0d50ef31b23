#pragma once

#include <cstdint>
#include <string>

#include "sample/SampleFacts.h"

namespace brindlet::demo {

struct DemoMail {
    /// None of mail that was there before.
    sample::SampleFacts facts;
    bool isNew = false;
    /// A finished sentence when it cannot be made; empty when all went well.
    std::string problem;
};

/// Makes the demo's mail and a mail program for it that takes its time, or leaves what is there as
/// it is.
DemoMail makeDemoMail(const std::string& home, std::int64_t messages);
/// The same with a mail program that has no accounts.
DemoMail makeEmptyMail(const std::string& home);

}  // namespace brindlet::demo
