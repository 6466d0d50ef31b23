#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Arguments.h"
#include "Evaluation.h"
#include "base/Files.h"
#include "classify/Classifier.h"
#include "models/embedded/EmbeddedModel.h"

namespace {

constexpr std::string_view usage =
    "evaluate_model [FILE]\n"
    "\n"
    "Asks the embedded model about the labelled messages of FILE, or of the file that\n"
    "BRINDLET_CORPUS names, and prints as one JSON object how right it is over those that are not\n"
    "ambiguous: accuracy, macro F1, and by category precision, recall and the answers given. The\n"
    "file has a JSON object a line: from, subject, body, category, ambiguous.\n"
    "\n"
    "  --at-least P  fails unless P percent of the answers are right\n"
    "  --help        this text\n";

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 1;
}

}  // namespace

int main(int count, char** values) {
    using namespace brindlet;
    tools::Arguments arguments(count, values, {"--at-least"});
    const auto percent = arguments.number("--at-least", 1, 100);
    if (arguments.help) {
        std::fputs(usage.data(), stdout);
        return 0;
    }
    if (!arguments.problem.empty() || arguments.words.size() > 1) {
        std::fputs(usage.data(), stderr);
        return tools::wrongUse;
    }
    const char* named = std::getenv("BRINDLET_CORPUS");
    if (arguments.words.empty() && (named == nullptr || *named == '\0')) {
        std::puts("skipped: BRINDLET_CORPUS is not set");
        return 0;
    }
    const std::string path = arguments.words.empty() ? named : arguments.words.front();
    const auto lines = files::read(path);
    if (!lines) return fail(path + " cannot be read.");
    std::string problem;
    const auto mails = tools::parseLabelledMail(*lines, problem);
    if (!mails) return fail(path + ": " + problem);

    EmbeddedModel model;
    const Classifier classifier(model);
    if (const auto trouble = classifier.availabilityProblem(); !trouble.empty())
        return fail(trouble);
    tools::Evaluation evaluation;
    for (const auto& mail : *mails)
        if (!mail.ambiguous)
            evaluation.add(mail.category,
                           classifier.classify(mail.sender, mail.subject, mail.body));
    std::puts(evaluation.json().c_str());
    return percent && evaluation.accuracy() * 100 < static_cast<double>(*percent) ? 1 : 0;
}
