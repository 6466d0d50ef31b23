#include "app/demo/Tour.h"

#include <QDir>
#include <QFile>
#include <QQuickWindow>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "app/MainWindow.h"
#include "app/demo/PassingNotice.h"
#include "app/demo/WindowWords.h"
#include "sample/MailSettings.h"
#include "session/AppState.h"

namespace brindlet::demo {

Tour::Tour(AppState& state, MainWindow& main, DemoWorld& world, PassingNotice& notice,
           QString pictures)
    : state_(state),
      main_(main),
      world_(world),
      notice_(notice),
      hand_(*main.window()),
      pictures_(std::move(pictures)) {}

bool Tour::run(Visit visit) {
    visit_ = visit;
    QDir().mkpath(pictures_);
    main_.window()->requestActivate();
    switch (visit) {
        case Visit::first:
            firstVisit();
            break;
        case Visit::again:
            visitAgain();
            break;
        case Visit::corrections:
            visitCorrections();
            break;
        case Visit::empty:
            visitEmpty();
            break;
        case Visit::withoutModel:
            visitWithoutModel();
            break;
    }
    step(QStringLiteral("nothing was complained of"), [this] {
        for (const auto& warning : main_.warnings()) std::printf("  %s\n", qPrintable(warning));
        return main_.warnings().isEmpty();
    });
    saveMet();
    return ok_ && !missed_;
}

void Tour::step(const QString& what, const std::function<bool()>& deed) {
    if (!ok_) return;
    ok_ = deed();
    std::printf("%s %s\n", ok_ ? "  " : "NO", qPrintable(what));
    std::fflush(stdout);
    if (!ok_) hand_.grab(pathOf(QStringLiteral("failed-") + QString::fromUtf8(rawValue(visit_))));
}

QString Tour::pathOf(const QString& name) const {
    return QStringLiteral("%1/%2.png").arg(pictures_, name);
}

void Tour::picture(const QString& name, const std::vector<const char*>& sights) {
    step(QStringLiteral("take a picture of it: ") + pathOf(name), [&] {
        notice_.clear();
        taken_ << name;
        // Half a row at an edge and what a menu hides are no faults.
        if (!hand_.picture(pathOf(name)) && hand_.standsAtRest()) missed_ = true;
        return taken_.count(name) == 1;
    });
    for (const auto* each : sights) {
        const auto* const sight = sightNamed(QString::fromUtf8(each));
        if (!sight)
            step(QStringLiteral("the list of sights has ") + QString::fromUtf8(each),
                 [] { return false; });
        if (!ok_) return;
        if (stands(*sight)) {
            meet(each, name);
        } else if (hand_.seek([&] { return stands(*sight); })) {
            const auto apart = QString::fromUtf8(each).replace(QLatin1Char('.'), QLatin1Char('-'));
            hand_.picture(pathOf(name + QStringLiteral("--") + apart));
            meet(each, name + QStringLiteral("--") + apart);
        } else {
            miss(*sight);
        }
    }
}

void Tour::glimpse(const QString& name, const std::vector<const char*>& sights) {
    std::vector<const Sight*> wanted;
    for (const auto* each : sights) wanted.push_back(sightNamed(QString::fromUtf8(each)));
    step(QStringLiteral("catch it in a picture: ") + pathOf(name), [&] {
        const bool caught = hand_.await([&] {
            return std::ranges::all_of(wanted, [&](const auto* each) { return stands(*each); });
        });
        if (!caught)
            for (const auto* each : wanted) miss(*each);
        return caught && hand_.grab(pathOf(name));
    });
    if (ok_)
        for (const auto* each : sights) meet(each, name);
}

bool Tour::stands(const Sight& sight) const {
    const auto readings = readWindow(*main_.window());
    return std::ranges::all_of(sight.marks, [&](const char* mark) {
        return std::ranges::any_of(readings, [&](const Reading& reading) {
            return reading.inView && reads(QString::fromUtf8(mark), reading.text);
        });
    });
}

void Tour::meet(const char* sight, const QString& name) {
    std::printf("   .. %s\n", sight);
    met_.emplace_back(QString::fromUtf8(sight), name + QStringLiteral(".png"));
}

void Tour::miss(const Sight& sight) {
    missed_ = true;
    std::printf("NO %s is not there:\n", sight.name);
    const auto readings = readWindow(*main_.window());
    for (const auto* mark : sight.marks)
        if (std::ranges::none_of(readings, [&](const Reading& reading) {
                return reading.inView && reads(QString::fromUtf8(mark), reading.text);
            }))
            std::printf("     nothing reads %s\n", mark);
    std::fflush(stdout);
}

void Tour::saveMet() const {
    QFile file(metSightsPath(pictures_, visit_));
    if (!file.open(QIODevice::WriteOnly)) return;
    for (const auto& [sight, picture] : met_)
        file.write(QStringLiteral("%1\t%2\n").arg(sight, picture).toUtf8());
}

bool Tour::changeMail(const std::function<void(sample::MailSettings&)>& change) const {
    const auto home = world_.directories.home();
    auto settings = sample::readMailSettings(home);
    if (!settings) return false;
    change(*settings);
    return sample::writeMailSettings(home, *settings);
}

}  // namespace brindlet::demo
