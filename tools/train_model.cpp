#include <cstdio>
#include <string>
#include <string_view>

#include "base/Files.h"
#include "models/training/Trainer.h"
#include "models/training/TrainingTexts.h"

namespace {

constexpr std::string_view usage =
    "Trains the embedded model's weights from the texts of a folder.\n"
    "train_model --write FOLDER FILE    writes the weights to the file\n"
    "train_model --compare FOLDER FILE  fails unless the file holds these very weights\n";

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace brindlet;
    const std::string_view action = argc == 4 ? argv[1] : "";
    if (action != "--write" && action != "--compare") {
        std::fputs(usage.data(), stderr);
        return 2;
    }
    const std::string folder = argv[2];
    const std::string path = argv[3];
    training::Grammar grammar;
    const std::string problem = training::readTrainingTexts(folder, grammar);
    if (!problem.empty()) return fail(problem);

    const std::string weights = training::trainedWeights(grammar, {});
    if (action == "--write")
        return files::write(path, weights) ? 0 : fail(path + " cannot be written.");
    const auto present = files::read(path);
    if (!present) return fail(path + " cannot be read.");
    return *present == weights ? 0 : fail(path + " differs from what the texts give: train again.");
}
