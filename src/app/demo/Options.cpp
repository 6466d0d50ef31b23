#include "app/demo/Options.h"

#include <QString>
#include <QStringList>

namespace brindlet::demo {

const char* const usage =
    "brindlet-demo [--messages N] [--keep DIR] [--light] [--size WIDTHxHEIGHT] [--on-battery]\n"
    "              [--tour DIR] [--model-server URL [--model-server-name NAME]]\n"
    "\n"
    "Brindlet over sample mail, in folders of its own that are removed at the end. Prints the app\n"
    "password that its Gmail account can be connected with.\n"
    "\n"
    "  --messages N   how many messages the sample mail has (2000)\n"
    "  --keep DIR     use this folder, and leave it there; mail in it is used again\n"
    "  --light        the light look\n"
    "  --size WxH     the window's size, such as 980x640\n"
    "  --on-battery   runs on battery power, on which a scan pauses\n"
    "  --tour DIR     plays a visit, puts a picture of each screen into DIR, and ends\n"
    "  --model-server URL\n"
    "                 lets a model server on this machine sort, see docs/model-server.md\n"
    "  --model-server-name NAME\n"
    "                 the model's name on that server\n";

Options parseOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const auto value = [&] { return i + 1 < argc ? std::string(argv[++i]) : std::string(); };
        bool understood = true;
        if (word == "--messages") {
            options.messages = QString::fromStdString(value()).toLongLong(&understood);
            understood = understood && options.messages > 0;
        } else if (word == "--keep") {
            understood = !(options.keep = value()).empty();
        } else if (word == "--tour") {
            understood = !(options.tour = value()).empty();
        } else if (word == "--model-server") {
            understood = !(options.modelServer = value()).empty();
        } else if (word == "--model-server-name") {
            understood = !(options.modelServerName = value()).empty();
        } else if (word == "--size") {
            const auto sides = QString::fromStdString(value()).split(QLatin1Char('x'));
            options.size = QSize(sides.value(0).toInt(), sides.value(1).toInt());
            understood = sides.size() == 2 && !options.size.isEmpty();
        } else if (word == "--on-battery") {
            options.onBattery = true;
        } else if (word == "--light") {
            options.light = true;
        } else if (word == "--help") {
            options.help = true;
        } else {
            understood = false;
        }
        if (!understood) options.problem = word;
    }
    return options;
}

}  // namespace brindlet::demo
