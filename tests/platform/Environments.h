#pragma once

#include <map>
#include <string>

#include "platform/linux/Environment.h"

namespace brindlet {

/// An environment of a test's own.
inline Environment environmentOf(std::map<std::string, std::string> variables) {
    return [variables = std::move(variables)](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second.c_str();
    };
}

}  // namespace brindlet
