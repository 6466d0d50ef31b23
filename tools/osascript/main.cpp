#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "Arguments.h"
#include "CommandLine.h"
#include "Interpreter.h"
#include "MailApplication.h"
#include "Parser.h"
#include "SystemEvents.h"
#include "base/Utf8.h"
#include "sample/SimulatedMail.h"

// Stands in for the script host of a Mac: runs the program's own scripts against the simulated mail
// program of a sample home, and behaves towards its caller as the real host does. The environment
// variable BRINDLET_SAMPLE_HOME names the home.

namespace brindlet::osascript {
namespace {

class SampleSurroundings : public Surroundings {
  public:
    explicit SampleSurroundings(const char* home) {
        if (!home || !(simulated_ = sample::SimulatedMail::open(home))) return;
        mail_.emplace(*simulated_, home);
        events_.emplace(*mail_);
    }
    ~SampleSurroundings() override {
        // The mail program and its server go on when the script has ended.
        if (simulated_) simulated_->comeToRest();
    }
    SampleSurroundings(const SampleSurroundings&) = delete;
    SampleSurroundings& operator=(const SampleSurroundings&) = delete;

    Application* application(std::string_view name) override {
        if (name == "Mail" && mail_) return &*mail_;
        if (name == "System Events" && events_) return &*events_;
        return nullptr;
    }
    void delay(std::int64_t seconds) override {
        if (simulated_) simulated_->advance(static_cast<double>(seconds));
    }

  private:
    std::unique_ptr<sample::SimulatedMail> simulated_;
    std::optional<MailApplication> mail_;
    std::optional<SystemEvents> events_;
};

std::string standardInput() {
    std::string all;
    char block[64 * 1024];
    while (const std::size_t got = std::fread(block, 1, sizeof block, stdin))
        all.append(block, got);
    return all;
}

int complain(const Range& range, const char* kind, const ScriptError& error) {
    std::fprintf(stderr, "%zu:%zu: %s error: %s (%d)\n", range.from, range.to, kind,
                 error.text.c_str(), error.number);
    return EXIT_FAILURE;
}

int main(int count, char** values) {
    const CommandLine line(count, values);
    if (!line.problem.empty()) {
        std::fprintf(stderr, "%s\n", line.problem.c_str());
        return tools::wrongUse;
    }
    const std::string source = repairedUtf8(line.fromStandardInput ? standardInput() : line.script);
    const auto script = parsed(source);
    if (const auto* error = std::get_if<SyntaxError>(&script))
        return complain(error->range, "syntax", {error->text, errors::syntax});

    SampleSurroundings surroundings(std::getenv(sample::sampleHomeVariable));
    Interpreter interpreter(surroundings);
    const auto outcome = interpreter.run(std::get<Script>(script), line.arguments);
    if (const auto* failure = std::get_if<Failure>(&outcome))
        return complain(failure->range, "execution", failure->error);
    if (const auto& printed = std::get<std::optional<std::string>>(outcome))
        std::printf("%s\n", printed->c_str());
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace brindlet::osascript

int main(int count, char** values) {
    return brindlet::osascript::main(count, values);
}
