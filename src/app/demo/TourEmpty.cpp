#include <filesystem>

#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {

void Tour::visitEmpty() {
    permission();
    noAccounts();
}

void Tour::visitWithoutModel() {
    step(QStringLiteral("the window stands"), [this] { return hand_.rest(); });
    picture(QStringLiteral("unsupported"), {"unsupported"});
}

bool Tour::hideMail(bool hidden) const {
    const auto mail = world_.directories.home() + "/Library/Mail";
    const auto away = mail + ".away";
    std::error_code error;
    std::filesystem::rename(hidden ? mail : away, hidden ? away : mail, error);
    return !error;
}

void Tour::permission() {
    step(QStringLiteral("the mail program's files cannot be read"),
         [this] { return hideMail(true); });
    step(QStringLiteral("click Start: the permission is asked for"), [this] {
        return hand_.click(QStringLiteral("start")) && hand_.await([this] {
            return hand_.find(QStringLiteral("permissionScreen")) != nullptr;
        });
    });
    picture(QStringLiteral("permission"), {"permission", "permission.steps", "permission.buttons"});
    step(QStringLiteral("click Check: it was not given"), [this] {
        return hand_.click(QStringLiteral("check")) && hand_.rest() &&
               hand_.find(QStringLiteral("permissionScreen"));
    });
    step(QStringLiteral("click Open Settings"),
         [this] { return hand_.click(QStringLiteral("openSettings")); });
    glimpse(QStringLiteral("demo-notice"), {"demo.opened"});
}

void Tour::noAccounts() {
    step(QStringLiteral("give it, and click Check"),
         [this] { return hideMail(false) && hand_.click(QStringLiteral("check")); });
    step(QStringLiteral("there are no accounts"), [this] {
        return hand_.await(
            [this] { return !*state_.loadingAccounts && hand_.find(QStringLiteral("openMail")); });
    });
    picture(QStringLiteral("no-accounts"), {"pick.noAccounts"});
    step(QStringLiteral("click Open Mail"),
         [this] { return hand_.click(QStringLiteral("openMail")); });
    step(QStringLiteral("the permission is lost; click Check again"), [this] {
        return hideMail(true) && hand_.click(QStringLiteral("checkAgain")) && hand_.await([this] {
            return !*state_.loadingAccounts && hand_.find(QStringLiteral("openSettings"));
        });
    });
    picture(QStringLiteral("cannot-read"), {"pick.unreadable"});
    step(QStringLiteral("it is given again; click Check again"), [this] {
        return hideMail(false) && hand_.click(QStringLiteral("checkAgain")) && hand_.await([this] {
            return !*state_.loadingAccounts && hand_.find(QStringLiteral("openMail"));
        });
    });
}

}  // namespace brindlet::demo
