#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

#include "Arguments.h"
#include "ToolModel.h"
#include "ToolWorld.h"
#include "base/Json.h"
#include "platform/linux/Memory.h"
#include "session/AppState.h"

// One real scan without a window, through the session object itself.

namespace brindlet::tools {
namespace {

constexpr const char* usage =
    "scan_mail_store --home DIR ACCOUNT MAILBOX [--limit N] [--reach R] [--store DIR]\n"
    "                [--model-server URL [--model-server-name NAME]]\n"
    "\n"
    "Scans a mailbox below the home folder and prints a JSON line for each verdict; on standard\n"
    "error the stages as they come, and what it took.\n"
    "\n"
    "  ACCOUNT      the account's id of 36 characters\n"
    "  MAILBOX      the mailbox's name\n"
    "  --limit N    at most the N newest messages; 0, the default, takes all\n"
    "  --reach R    week, month, threeMonths, year or everything, the default\n"
    "  --store DIR  where what is learned is kept; otherwise it is forgotten at the end\n"
    "  --model-server URL\n"
    "               lets a model server on this machine sort, see docs/model-server.md\n"
    "  --model-server-name NAME\n"
    "               the model's name on that server\n"
    "  --help       this text\n";

/// Counts the calls on their way to the model.
class CountingModel : public LanguageModel {
  public:
    explicit CountingModel(LanguageModel& model) : model_(model) {}

    ModelAvailability availability() const override { return model_.availability(); }
    std::optional<Answer> respond(const std::string& instructions, const ModelSchema& schema,
                                  const std::string& prompt, const ModelOptions& options) override {
        ++calls;
        return model_.respond(instructions, schema, prompt, options);
    }

    std::atomic<std::int64_t> calls = 0;

  private:
    LanguageModel& model_;
};

void printVerdict(const Verdict& verdict, bool ticked) {
    JsonWriter out;
    out.beginObject();
    out.member("id", verdict.id);
    out.key("messageID");
    if (verdict.messageID)
        out.value(*verdict.messageID);
    else
        out.null();
    out.member("sender", verdict.sender);
    out.member("subject", verdict.subject);
    out.member("category", rawValue(verdict.category));
    out.member("isJunk", verdict.isJunk);
    out.member("vetoed", verdict.vetoed);
    out.member("byRule", verdict.byRule);
    out.member("ticked", ticked);
    out.endObject();
    std::puts(std::move(out).text().c_str());
}

int complain(const std::string& sentence, int status) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return status;
}

struct Target {
    MailAccount account;
    MailFolder folder;
};

std::optional<Target> find(const MailStore& mail, const std::string& account,
                           const std::string& mailbox) {
    for (const auto& each : mail.loadAccounts(false, false)) {
        if (each.id != account) continue;
        for (const auto& folder : each.folders)
            if (folder.name == mailbox) return Target{each, folder};
    }
    return std::nullopt;
}

int scan(const Arguments& arguments, std::int64_t limit, const std::string& reach) {
    ToolWorld world(*arguments.option("--home"), arguments.option("--store"));
    const auto asked = toolModel(arguments, world.defaults);
    CountingModel model(*asked);
    world.defaults.setInteger("scan.limit", limit);
    world.defaults.setString("scan.reach", reach);
    const auto state = AppState::make(world.services(model));
    if (!state->canReadIndex()) return complain("There is no mail index that can be read.", 1);
    const auto target = find(state->mail(), arguments.words[0], arguments.words[1]);
    if (!target) return complain("There is no such account and mailbox.", 1);

    std::string told;
    const auto tellStage = [&] {
        if (*state->stage == told) return;
        told = *state->stage;
        if (!told.empty()) std::fprintf(stderr, "%s\n", told.c_str());
    };
    // The signal comes before the change, so each stage is told at the next one.
    const auto watch = state->subscribe(tellStage);
    const auto start = std::chrono::steady_clock::now();
    state->startScan(target->account, target->folder);
    runDetached(TaskPriority::utility, [&loop = world.loop, task = *state->scanTask()] {
        task.wait();
        loop.post([&loop] { loop.stop(); });
    });
    world.loop.run();
    state->drainWrites();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    for (const auto& verdict : *state->verdicts)
        printVerdict(verdict, state->approved->contains(verdict.id));
    std::fprintf(stderr, "%zu messages: %lld junk, %lld protected, %lld skipped\n",
                 state->verdicts->size(), static_cast<long long>(state->verdicts->junkCount()),
                 static_cast<long long>(state->verdicts->vetoedCount()),
                 static_cast<long long>(*state->skipped));
    std::fprintf(stderr, "%lld model calls, %.2f seconds\n",
                 static_cast<long long>(model.calls.load()), seconds);
    return *state->scanError ? complain(**state->scanError, 1) : 0;
}

int main(int count, char** values) {
    shareHeaps();
    Arguments arguments(
        count, values, {"--home", "--limit", "--reach", "--store", serverOption, serverNameOption});
    if (arguments.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    const auto limit = arguments.number("--limit", 0, 1'000'000'000).value_or(0);
    const auto reach = arguments.option("--reach").value_or("everything");
    if (arguments.problem.empty() && !fromRaw<Reach>(reach))
        arguments.problem = "There is no reach \"" + reach + "\".";
    if (arguments.problem.empty() && (!arguments.option("--home") || arguments.words.size() != 2))
        arguments.problem = "Name a home folder, an account and a mailbox; --help tells more.";
    if (!arguments.problem.empty()) return complain(arguments.problem, wrongUse);
    return scan(arguments, limit, reach);
}

}  // namespace
}  // namespace brindlet::tools

int main(int count, char** values) {
    return brindlet::tools::main(count, values);
}
