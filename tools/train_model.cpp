#include <cstdio>
#include <string>
#include <string_view>

#include "Arguments.h"
#include "base/Files.h"
#include "models/training/Trainer.h"
#include "models/training/TrainingTexts.h"

namespace {

constexpr std::string_view usage =
    "train_model --write FILE FOLDER | --compare FILE FOLDER\n"
    "\n"
    "Trains the embedded model's weights from the texts of FOLDER, the same for the same texts on\n"
    "every machine.\n"
    "\n"
    "  --write FILE    writes the weights to FILE\n"
    "  --compare FILE  fails unless FILE holds these very weights\n"
    "  --help          this text\n";

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 1;
}

}  // namespace

int main(int count, char** values) {
    using namespace brindlet;
    const tools::Arguments arguments(count, values, {"--write", "--compare"});
    if (arguments.help) {
        std::fputs(usage.data(), stdout);
        return 0;
    }
    if (!arguments.problem.empty() || arguments.words.size() != 1 ||
        arguments.options.size() != 1) {
        std::fputs(usage.data(), stderr);
        return tools::wrongUse;
    }
    training::Grammar grammar;
    const std::string problem = training::readTrainingTexts(arguments.words.front(), grammar);
    if (!problem.empty()) return fail(problem);

    const std::string weights = training::trainedWeights(grammar, {});
    const auto& [action, path] = *arguments.options.begin();
    if (action == "--write")
        return files::write(path, weights) ? 0 : fail(path + " cannot be written.");
    const auto present = files::read(path);
    if (!present) return fail(path + " cannot be read.");
    return *present == weights ? 0 : fail(path + " differs from what the texts give: train again.");
}
