#include <sys/prctl.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "Arguments.h"
#include "MovingSession.h"
#include "ToolModel.h"
#include "ToolWorld.h"
#include "platform/linux/Memory.h"
#include "sample/MailSettings.h"
#include "sample/SimulatedApps.h"

// Real moves without a window, through the session object itself and a script host.

namespace brindlet::tools {
namespace {

constexpr const char* usage =
    "move_messages --home DIR --host PATH --store DIR ACCOUNT MAILBOX\n"
    "              [--resume | --put-back] [--ui-move] [--stop-after N] [--wait]\n"
    "              [--model-server URL [--model-server-name NAME]]\n"
    "\n"
    "Scans a mailbox of a sample home and moves what the scan ticks. Prints a JSON line for each\n"
    "change of the move's stage, and one for how it ended.\n"
    "\n"
    "  ACCOUNT         the account's id of 36 characters\n"
    "  MAILBOX         the mailbox's name\n"
    "  --host PATH     the script host to run, as a rule the stand-in\n"
    "  --store DIR     where what is learned is kept, and the move that was not finished\n"
    "  --resume        goes on with that move; nothing is scanned\n"
    "  --put-back      returns what was moved out of the mailbox after its latest scan\n"
    "  --ui-move       allows moving by the mail program's menu\n"
    "  --stop-after N  stops the move once so many messages have moved\n"
    "  --wait          prints a line when all is ready, and moves at the end of standard input;\n"
    "                  a tracer may be attached meanwhile\n"
    "  --model-server URL\n"
    "                  lets a model server on this machine sort, see docs/model-server.md\n"
    "  --model-server-name NAME\n"
    "                  the model's name on that server\n"
    "  --help          this text\n";

int complain(const std::string& sentence, int status) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return status;
}

void awaitEndOfInput() {
    // Some systems let nobody but an ancestor trace a process, unless the process says otherwise.
    ::prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY);
    std::puts("{\"ready\":true}");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
}

int move(const Arguments& arguments, MoveOrder order) {
    const std::string home = *arguments.option("--home");
    ::setenv(sample::sampleHomeVariable, home.c_str(), 1);
    sample::SimulatedApps apps(home);
    ToolWorld world(home, arguments.option("--store"));
    world.scriptHost = *arguments.option("--host");
    world.defaults.setInteger("scan.limit", 0);
    world.defaults.setString("scan.reach", "everything");
    world.defaults.setBoolean("allowUIMove", arguments.flag("--ui-move"));
    const auto model = toolModel(arguments, world.defaults);
    const auto state = AppState::make(world.services(*model, apps));
    if (!state->canReadIndex()) return complain("There is no mail index that can be read.", 1);
    const std::string problem = MovingSession(world.loop, state, std::move(order)).run();
    return problem.empty() ? 0 : complain(problem, 1);
}

int main(int count, char** values) {
    shareHeaps();
    Arguments arguments(
        count, values,
        {"--home", "--host", "--store", "--stop-after", serverOption, serverNameOption},
        {"--resume", "--put-back", "--ui-move", "--wait"});
    if (arguments.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    MoveOrder order;
    order.stopAfter = arguments.number("--stop-after", 0, 1'000'000'000);
    if (arguments.flag("--resume")) order.what = MoveOrder::What::resume;
    if (arguments.flag("--put-back")) order.what = MoveOrder::What::putBack;
    if (arguments.flag("--wait")) order.ready = awaitEndOfInput;
    auto& problem = arguments.problem;
    if (problem.empty() && arguments.flag("--resume") && arguments.flag("--put-back"))
        problem = "Either resume or put back.";
    for (const char* const needed : {"--home", "--host", "--store"})
        if (problem.empty() && !arguments.option(needed))
            problem = std::string(needed) + " is missing; --help tells more.";
    if (problem.empty() && arguments.words.size() != 2)
        problem = "Name an account and a mailbox; --help tells more.";
    if (!problem.empty()) return complain(problem, wrongUse);
    order.accountId = arguments.words[0];
    order.mailbox = arguments.words[1];
    return move(arguments, std::move(order));
}

}  // namespace
}  // namespace brindlet::tools

int main(int count, char** values) {
    return brindlet::tools::main(count, values);
}
