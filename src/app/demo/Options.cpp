#include "app/demo/Options.h"

#include <QString>
#include <QStringList>

namespace brindlet::demo {

const char* const usage =
    "brindlet-demo [--messages N] [--keep DIR] [--light] [--size WIDTHxHEIGHT] [--on-battery]\n"
    "              [--first-time] [--without-accounts] [--without-model]\n"
    "              [--tour DIR [--visit NAME]]\n"
    "              [--model-server URL [--model-server-name NAME]]\n"
    "\n"
    "Brindlet over sample mail, in folders of its own that are removed at the end, as if it had\n"
    "been in use for some weeks. Prints the app password that its Gmail account can be connected\n"
    "with, and the file that is its plug: while that says \"battery\", the demo runs on battery,\n"
    "and a scan waits until it says something else.\n"
    "\n"
    "  --messages N        how many messages the sample mail has (2000)\n"
    "  --keep DIR          use this folder, and leave it there; mail in it is used again\n"
    "  --light             the light look\n"
    "  --size WxH          the window's size, such as 980x640\n"
    "  --on-battery        starts with the plug pulled\n"
    "  --first-time        nothing was ever sorted before\n"
    "  --without-accounts  the mail program has no accounts\n"
    "  --without-model     the machine has no language model\n"
    "  --tour DIR          plays visits that show every screen, puts pictures of them into DIR "
    "and\n"
    "                      a list of what they show into DIR/sights.txt, and ends\n"
    "  --visit NAME        plays this visit alone, in a world like it: first, again, corrections,\n"
    "                      empty or without-model\n"
    "  --model-server URL  lets a model server on this machine sort, see docs/model-server.md\n"
    "  --model-server-name NAME\n"
    "                      the model's name on that server\n";

namespace {

/// A visit needs the world that it was written for.
void makeRoomFor(Visit visit, Options& options) {
    options.visit = visit;
    options.firstTime = visit == Visit::first || visit == Visit::corrections;
    options.withoutAccounts = visit == Visit::empty;
    options.world.withoutModel = visit == Visit::withoutModel;
}

bool* flagNamed(const std::string& word, Options& options) {
    if (word == "--light") return &options.light;
    if (word == "--on-battery") return &options.world.onBattery;
    if (word == "--first-time") return &options.firstTime;
    if (word == "--without-accounts") return &options.withoutAccounts;
    if (word == "--without-model") return &options.world.withoutModel;
    if (word == "--help") return &options.help;
    return nullptr;
}

std::string* textNamed(const std::string& word, Options& options) {
    if (word == "--keep") return &options.keep;
    if (word == "--tour") return &options.tour;
    if (word == "--model-server") return &options.world.modelServer;
    if (word == "--model-server-name") return &options.world.modelServerName;
    return nullptr;
}

}  // namespace

Options parseOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const auto value = [&] { return i + 1 < argc ? std::string(argv[++i]) : std::string(); };
        bool understood = true;
        if (auto* const flag = flagNamed(word, options)) {
            *flag = true;
        } else if (auto* const text = textNamed(word, options)) {
            *text = value();
            understood = !text->empty();
        } else if (word == "--messages") {
            options.messages = QString::fromStdString(value()).toLongLong(&understood);
            understood = understood && options.messages > 0;
        } else if (word == "--size") {
            const auto sides = QString::fromStdString(value()).split(QLatin1Char('x'));
            options.size = QSize(sides.value(0).toInt(), sides.value(1).toInt());
            understood = sides.size() == 2 && !options.size.isEmpty();
        } else if (word == "--visit") {
            const auto visit = fromRaw<Visit>(value());
            understood = visit.has_value();
            if (visit) makeRoomFor(*visit, options);
        } else {
            understood = false;
        }
        if (!understood) options.problem = word;
    }
    if (options.visit && options.tour.empty()) options.problem = "--visit without --tour";
    return options;
}

}  // namespace brindlet::demo
