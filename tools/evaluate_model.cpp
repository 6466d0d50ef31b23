#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Arguments.h"
#include "Evaluation.h"
#include "MarkedPart.h"
#include "ToolModel.h"
#include "base/Files.h"
#include "base/Text.h"
#include "models/ChosenModel.h"
#include "models/embedded/EmbeddedModel.h"
#include "platform/linux/FileUserDefaults.h"

namespace brindlet::tools {
namespace {

constexpr std::string_view usage =
    "evaluate_model [FILE] [--raw] [--guesses | --model-server URL [--model-server-name NAME]]\n"
    "               [--own ADDRESS] [--correspondents FILE]\n"
    "               [--jsonl | --update PAGE | --compare PAGE] [--at-least P]\n"
    "\n"
    "Sorts the labelled messages of FILE, or of the file that BRINDLET_CORPUS names, and prints\n"
    "how right the embedded model is as tables of Markdown: first the mail that must stay but was\n"
    "proposed as junk. The messages go through a scan's own gates as one folder, newest first: a\n"
    "few of like subjects are read and the others inherit, and protection holds back. The file\n"
    "has a JSON object a line: from, subject, body, category, and perhaps id and ambiguous.\n"
    "Ambiguous messages are sorted too, but count in no number.\n"
    "\n"
    "  --raw             asks the model about each message by itself, with nothing that protects\n"
    "  --guesses         lets the embedded model propose as junk what it is not sure of\n"
    "  --model-server URL\n"
    "                    asks a model server on this machine instead, see docs/model-server.md\n"
    "  --model-server-name NAME\n"
    "                    the model's name on that server\n"
    "  --own ADDRESS     mail from this address is the person's own\n"
    "  --correspondents FILE\n"
    "                    addresses that the person has written to, one a line\n"
    "  --jsonl           prints each message's id, category, junk and vetoed instead, as JSON\n"
    "  --update PAGE     writes the tables into PAGE, between the lines <!-- evaluation --> and\n"
    "                    <!-- /evaluation -->\n"
    "  --compare PAGE    fails unless they stand there\n"
    "  --at-least P      fails unless P percent of the categories are right\n"
    "  --help            this text\n";

constexpr std::string_view marked = "evaluation";

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 1;
}

std::vector<std::string> lowercasedLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(line.size() == text.size() ? line.size() : line.size() + 1);
        lines.push_back(lowercased(trimBlanks(line)));
    }
    return lines;
}

/// The model to be judged. None, with a finished sentence in `problem`, when a server is named that
/// does not count: numbers of another model would be worse than none.
std::unique_ptr<LanguageModel> judgedModel(const Arguments& arguments, std::string& problem) {
    const auto server = arguments.option(serverOption);
    const bool guesses = arguments.flag("--guesses");
    if (!server)
        return std::make_unique<EmbeddedModel>(guesses ? 0.F : EmbeddedModel::leastJunkProbability);
    if (guesses) {
        problem = "--guesses is for the embedded model.";
        return nullptr;
    }
    FileUserDefaults settings;
    settings.setString("model.server", *server);
    settings.setString("model.server.name", arguments.option(serverNameOption).value_or(""));
    auto chosen = chosenModel(settings);
    problem = chosen.problem;
    return problem.empty() ? std::move(chosen.model) : nullptr;
}

/// Does with the tables what the options ask for.
int tell(const std::string& tables, const Arguments& arguments) {
    const auto updated = arguments.option("--update");
    const auto compared = arguments.option("--compare");
    if (!updated && !compared) {
        std::fputs(tables.c_str(), stdout);
        return 0;
    }
    const auto page = updated ? *updated : *compared;
    const auto before = files::read(page);
    if (!before) return fail(page + " cannot be read.");
    const auto after = withMarkedPart(*before, marked, tables);
    if (!after) return fail(page + " has no place for the tables.");
    if (updated) return files::write(page, *after) ? 0 : fail(page + " cannot be written.");
    if (*after == *before) return 0;
    std::fputs(tables.c_str(), stdout);
    return fail(page + " tells other numbers than these; --update writes them.");
}

int evaluate(const std::string& path, const Arguments& arguments,
             std::optional<std::int64_t> percent) {
    const auto lines = files::read(path);
    if (!lines) return fail(path + " cannot be read.");
    std::string problem;
    const auto mails = parseLabelledMail(*lines, problem);
    if (!mails) return fail(path + ": " + problem);

    DecisionGround ground;
    if (const auto own = arguments.option("--own")) ground.own = AddressSet({lowercased(*own)});
    if (const auto written = arguments.option("--correspondents")) {
        const auto addresses = files::read(*written);
        if (!addresses) return fail(*written + " cannot be read.");
        ground.correspondents = AddressSet(lowercasedLines(*addresses));
    }

    const auto model = judgedModel(arguments, problem);
    if (!model) return fail(problem);
    const auto classifier = std::make_shared<const Classifier>(*model);
    if (const auto trouble = classifier->availabilityProblem(); !trouble.empty())
        return fail(trouble);
    const auto answers = arguments.flag("--raw")
                             ? askEach(*mails, *classifier)
                             : sortLabelled(*mails, classifier, std::move(ground));
    if (arguments.flag("--jsonl")) {
        std::fputs(answerLines(*mails, answers).c_str(), stdout);
        return 0;
    }
    const Evaluation evaluation(*mails, answers);
    const int status = tell(markdown(evaluation), arguments);
    const bool enough =
        !percent || evaluation.accuracy().value() * 100 >= static_cast<double>(*percent);
    return status == 0 && !enough ? 1 : status;
}

int main(int count, char** values) {
    Arguments arguments(count, values,
                        {"--own", "--correspondents", "--update", "--compare", "--at-least",
                         serverOption, serverNameOption},
                        {"--raw", "--guesses", "--jsonl"});
    const auto percent = arguments.number("--at-least", 1, 100);
    if (arguments.help) {
        std::fputs(usage.data(), stdout);
        return 0;
    }
    if (arguments.problem.empty() && arguments.words.size() > 1)
        arguments.problem = "Name one file; --help tells more.";
    if (!arguments.problem.empty()) {
        fail(arguments.problem);
        return wrongUse;
    }
    if (!arguments.words.empty()) return evaluate(arguments.words.front(), arguments, percent);
    if (const char* named = std::getenv("BRINDLET_CORPUS"); named != nullptr && *named != '\0')
        return evaluate(named, arguments, percent);
    std::puts("skipped: BRINDLET_CORPUS is not set");
    return 0;
}

}  // namespace
}  // namespace brindlet::tools

int main(int count, char** values) {
    return brindlet::tools::main(count, values);
}
