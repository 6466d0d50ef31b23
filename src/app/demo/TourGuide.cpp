#include "app/demo/TourGuide.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QStringList>
#include <cstdio>
#include <memory>
#include <vector>

#include "app/demo/Sights.h"

namespace brindlet::demo {
namespace {

QStringList argumentsFor(Visit visit, const Options& options) {
    QStringList words{QStringLiteral("--tour"),     QString::fromStdString(options.tour),
                      QStringLiteral("--visit"),    QString::fromUtf8(rawValue(visit)),
                      QStringLiteral("--messages"), QString::number(options.messages)};
    if (options.light) words << QStringLiteral("--light");
    if (!options.size.isEmpty())
        words << QStringLiteral("--size")
              << QStringLiteral("%1x%2").arg(options.size.width()).arg(options.size.height());
    return words;
}

/// What a visit says, line by line and with its name, as several speak at once.
void passOn(QProcess& visit) {
    while (visit.canReadLine())
        std::printf("%-14s%s", qPrintable(visit.objectName()), visit.readLine().constData());
    std::fflush(stdout);
}

bool playVisits(const Options& options) {
    std::vector<std::unique_ptr<QProcess>> visits;
    QEventLoop loop;
    int playing = 0;
    bool good = true;
    for (const auto each : allCases<Visit>()) {
        auto& visit = *visits.emplace_back(std::make_unique<QProcess>());
        visit.setObjectName(QString::fromUtf8(rawValue(each)));
        visit.setProcessChannelMode(QProcess::MergedChannels);
        QObject::connect(&visit, &QProcess::readyRead, &loop, [&visit] { passOn(visit); });
        const auto end = [&](bool well) {
            good = good && well;
            if (--playing == 0) loop.quit();
        };
        QObject::connect(&visit, &QProcess::finished, &loop, [&, end](int code, auto status) {
            passOn(visit);
            end(status == QProcess::NormalExit && code == 0);
        });
        QObject::connect(&visit, &QProcess::errorOccurred, &loop, [end](auto error) {
            if (error == QProcess::FailedToStart) end(false);
        });
        ++playing;
        visit.start(QCoreApplication::applicationFilePath(), argumentsFor(each, options));
    }
    loop.exec();
    return good;
}

/// The first picture of each sight, by the sight's name.
QMap<QString, QString> picturesOfSights(const QString& folder) {
    QMap<QString, QString> pictures;
    for (const auto each : allCases<Visit>()) {
        QFile met(metSightsPath(folder, each));
        if (!met.open(QIODevice::ReadOnly)) continue;
        while (!met.atEnd()) {
            const auto line = QString::fromUtf8(met.readLine().trimmed()).split(QLatin1Char('\t'));
            if (!pictures.contains(line.value(0))) pictures.insert(line.value(0), line.value(1));
        }
        met.remove();
    }
    return pictures;
}

bool listSights(const QString& folder) {
    const auto pictures = picturesOfSights(folder);
    QFile list(folder + QStringLiteral("/sights.txt"));
    bool all = list.open(QIODevice::WriteOnly);
    int met = 0;
    for (const auto& sight : sights()) {
        const auto picture = pictures.value(QString::fromUtf8(sight.name));
        if (!picture.isEmpty()) {
            ++met;
            list.write(
                QStringLiteral("%1\t%2\t%3\n")
                    .arg(QString::fromUtf8(sight.name), picture, QString::fromUtf8(sight.what))
                    .toUtf8());
        } else if (!sight.pending) {
            std::printf("NO picture shows %s: %s\n", sight.name, sight.what);
            all = false;
        }
    }
    std::printf("%d sights in %s\n", met, qPrintable(list.fileName()));
    return all;
}

}  // namespace

bool playTour(const Options& options) {
    const auto folder = QString::fromStdString(options.tour);
    QDir().mkpath(folder);
    const bool played = playVisits(options);
    const bool listed = listSights(folder);
    std::printf(played && listed ? "The tour went well.\n" : "The tour FAILED.\n");
    std::fflush(stdout);
    return played && listed;
}

}  // namespace brindlet::demo
