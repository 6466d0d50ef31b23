#include "sample/MailPresence.h"

#include "base/Files.h"

namespace brindlet::sample {
namespace {

/// Stands in the home while the program does not run.
std::string mark(const std::string& home) {
    return home + "/mail-program.quit";
}

}  // namespace

bool mailIsRunning(const std::string& home) {
    return !files::exists(mark(home));
}

void launchMail(const std::string& home) {
    files::remove(mark(home));
}

void quitMail(const std::string& home) {
    files::write(mark(home), "");
}

}  // namespace brindlet::sample
