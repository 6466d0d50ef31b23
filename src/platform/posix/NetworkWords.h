#pragma once

#include <string>

namespace brindlet {

/// What a failed call on a socket means for the person, given its errno.
std::string describeSocketError(int error);
/// The same for a look-up, given the result of getaddrinfo.
std::string describeLookupError(int error);

}  // namespace brindlet
