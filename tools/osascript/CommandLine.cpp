#include "CommandLine.h"

namespace brindlet::osascript {

CommandLine::CommandLine(int count, char** values) {
    int at = 1;
    bool lines = false;
    while (at < count && std::string(values[at]) == "-e") {
        if (++at == count) {
            problem = "A line of script is missing after -e.";
            return;
        }
        script += script.empty() ? "" : "\n";
        script += values[at++];
        lines = true;
    }
    if (!lines) {
        // Without anything on its command line the host reads its standard input as well.
        fromStandardInput = at == count || std::string(values[at]) == "-";
        if (!fromStandardInput) {
            problem = "Scripts come by -e, or by standard input after -; this host opens no file.";
            return;
        }
        if (at < count) ++at;
    }
    arguments.assign(values + at, values + count);
}

}  // namespace brindlet::osascript
