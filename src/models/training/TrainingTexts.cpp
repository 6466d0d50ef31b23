#include "models/training/TrainingTexts.h"

#include "base/Files.h"
#include "models/embedded/Labels.h"

namespace brindlet::training {

std::string readTrainingTexts(const std::string& folder, Grammar& grammar) {
    const auto add = [&](std::string_view name, auto&& adding) -> std::string {
        const std::string path = folder + "/" + std::string(name) + ".txt";
        const auto text = files::read(path);
        if (!text) return path + " cannot be read.";
        const std::string problem = adding(*text);
        return problem.empty() ? "" : path + ", " + problem + ".";
    };
    std::string problem =
        add("words", [&](const std::string& text) { return grammar.addWords(text); });
    for (const auto label : learnedLabels) {
        if (!problem.empty()) break;
        problem =
            add(label, [&](const std::string& text) { return grammar.addCategory(label, text); });
    }
    return problem;
}

}  // namespace brindlet::training
