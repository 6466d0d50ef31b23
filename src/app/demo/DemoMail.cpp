#include "app/demo/DemoMail.h"

#include <chrono>
#include <utility>

#include "base/Files.h"
#include "sample/HandmadeHome.h"
#include "sample/MailSettings.h"
#include "sample/SampleMailStore.h"

namespace brindlet::demo {
namespace {

/// How much of the time that the simulated mail program says it takes really passes: a move of some
/// hundred messages is to be seen, and to be stopped.
constexpr double pace = 0.03;

bool isThere(const std::string& home) {
    return files::exists(home + "/Library");
}

}  // namespace

DemoMail makeDemoMail(const std::string& home, std::int64_t messages) {
    DemoMail mail;
    if (isThere(home)) return mail;
    sample::SampleOptions options;
    options.messages = messages;
    options.newest = std::chrono::duration_cast<std::chrono::seconds>(
                         std::chrono::system_clock::now().time_since_epoch())
                         .count();
    auto made = sample::makeMailStore(home, options, {});
    mail.problem = std::move(made.problem);
    if (!mail.problem.empty()) return mail;
    mail.facts = std::move(made.facts);
    mail.isNew = true;
    auto settings = sample::readMailSettings(home).value_or(sample::MailSettings());
    settings.behaviour.pace = pace;
    if (!sample::writeMailSettings(home, settings))
        mail.problem = "The mail program's settings could not be written.";
    return mail;
}

DemoMail makeEmptyMail(const std::string& home) {
    DemoMail mail;
    if (isThere(home)) return mail;
    mail.isNew = true;
    sample::HandmadeHome empty(home);
    if (!empty.finish()) mail.problem = "The empty mail folder could not be made.";
    return mail;
}

}  // namespace brindlet::demo
