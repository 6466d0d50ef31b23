#include "models/training/TrainingTexts.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/Files.h"
#include "models/embedded/Labels.h"

namespace brindlet::training {
namespace {

/// "<label>.txt" or "<label>-<anything>.txt".
bool belongsTo(std::string_view name, std::string_view label) {
    if (!name.starts_with(label) || !name.ends_with(".txt")) return false;
    const std::string_view between = name.substr(label.size());
    return between == ".txt" || between.starts_with('-');
}

}  // namespace

std::string readTrainingTexts(const std::string& folder, Grammar& grammar) {
    auto names = files::list(folder);
    if (!names) return folder + " cannot be read.";
    // The order of the scenarios decides which are drawn, so it must not be the file system's.
    std::ranges::sort(*names);
    const auto add = [&](std::string_view name, auto&& adding) -> std::string {
        const std::string path = folder + "/" + std::string(name);
        const auto text = files::read(path);
        if (!text) return path + " cannot be read.";
        const std::string problem = adding(*text);
        return problem.empty() ? "" : path + ", " + problem + ".";
    };
    std::string problem =
        add("words.txt", [&](const std::string& text) { return grammar.addWords(text); });
    for (const auto label : learnedLabels) {
        bool any = false;
        for (const auto& name : *names) {
            if (!problem.empty()) return problem;
            if (!belongsTo(name, label)) continue;
            any = true;
            problem = add(
                name, [&](const std::string& text) { return grammar.addCategory(label, text); });
        }
        if (problem.empty() && !any)
            return folder + "/" + std::string(label) + ".txt cannot be read.";
    }
    return problem;
}

}  // namespace brindlet::training
