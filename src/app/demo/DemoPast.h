#pragma once

#include "platform/Services.h"
#include "sample/SampleFacts.h"

namespace brindlet::demo {

/// Gives the demo's stores what some weeks of use would have left in them, in step with the mail
/// that the facts tell of: scans, some of which have moved mail, and two in the bin; rules of every
/// kind; categories that corrections have flipped; a schedule; and a move that did not finish, of
/// which the simulated mail program can still move the rest. The stores must be empty, and be
/// loaded by a session only afterwards. Main thread.
void givePast(const Services& services, const sample::SampleFacts& facts);

}  // namespace brindlet::demo
