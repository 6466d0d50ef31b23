#include "mover/ScriptError.h"

#include <initializer_list>

#include "base/Text.h"

namespace brindlet {
namespace {

bool containsAnyOf(std::string_view text, std::initializer_list<std::string_view> parts) {
    for (const auto part : parts)
        if (text.find(part) != std::string_view::npos) return true;
    return false;
}

}  // namespace

std::string lastErrorLine(std::string_view errorText, std::string_view otherwise) {
    const auto lines = nonEmptyPieces(errorText, '\n');
    return withoutParts(lines.empty() ? otherwise : lines.back(), "execution error: ");
}

bool lacksMenuPermission(std::string_view errorText) {
    return containsAnyOf(errorText, {"assistive access", "not authorized", "-25211", "-1719"});
}

bool tellsThatMailIsGone(std::string_view errorText) {
    return containsAnyOf(errorText, {"-609", "not running", "connection is invalid"});
}

}  // namespace brindlet
