#pragma once

#include <string>
#include <vector>

#include "osascript/Interpreter.h"
#include "osascript/Parser.h"

namespace brindlet::osascript {

/// A machine without applications; counts what scripts wait.
struct BareSurroundings : Surroundings {
    Application* application(std::string_view) override { return nullptr; }
    void delay(std::int64_t seconds) override { waited += seconds; }

    std::int64_t waited = 0;
};

/// Runs a script in this process. Gives what the host would print: the result, "(number) text" for
/// an error, "syntax: text" for a script that is not understood, "nothing" without a result.
inline std::string resultOf(const std::string& source,
                            const std::vector<std::string>& arguments = {}) {
    const auto script = parsed(source);
    if (const auto* error = std::get_if<SyntaxError>(&script)) return "syntax: " + error->text;
    BareSurroundings surroundings;
    const auto outcome = Interpreter(surroundings).run(std::get<Script>(script), arguments);
    if (const auto* failure = std::get_if<Failure>(&outcome))
        return '(' + std::to_string(failure->error.number) + ") " + failure->error.text;
    return std::get<std::optional<std::string>>(outcome).value_or("nothing");
}

}  // namespace brindlet::osascript
