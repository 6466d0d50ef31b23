#include "desktop/Dump.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <QThread>
#include <algorithm>
#include <vector>

namespace brindlet::desktop {
namespace {

constexpr int patience = 10'000;
constexpr unsigned long pause = 50;

/// The program itself is left out: its description is its place on this machine.
QString told(const ScreenReader& reader) {
    QString dump;
    for (const auto& window : reader.everything().children) dump += window.printed();
    return masked(dump);
}

/// What is told when it has been told several times in a row.
QString toldAtRest(const ScreenReader& reader) {
    auto last = told(reader);
    const QDeadlineTimer deadline(patience);
    for (int same = 0; same < 10 && !deadline.hasExpired(); QThread::msleep(pause)) {
        auto now = told(reader);
        same = now == last ? same + 1 : 0;
        last = std::move(now);
    }
    return last;
}

/// The lines that both share, as long a list as there is, one step of it for each pair of rests.
std::vector<std::vector<int>> sharedLines(const QStringList& one, const QStringList& other) {
    std::vector<std::vector<int>> shared(
        static_cast<std::size_t>(one.size()) + 1,
        std::vector<int>(static_cast<std::size_t>(other.size()) + 1));
    for (auto i = static_cast<std::size_t>(one.size()); i-- > 0;)
        for (auto j = static_cast<std::size_t>(other.size()); j-- > 0;)
            shared[i][j] = one[static_cast<qsizetype>(i)] == other[static_cast<qsizetype>(j)]
                               ? shared[i + 1][j + 1] + 1
                               : std::max(shared[i + 1][j], shared[i][j + 1]);
    return shared;
}

/// Leaves out what is far from any change.
QString nearChanges(const QStringList& lines) {
    constexpr qsizetype near = 2;
    QString text;
    bool gap = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto from = std::max<qsizetype>(0, i - near);
        const auto around = lines.mid(from, i + near + 1 - from);
        if (std::ranges::all_of(around, [](const auto& line) { return line[0] == u' '; })) {
            gap = true;
            continue;
        }
        if (gap) text += QStringLiteral("  ...\n");
        gap = false;
        text += lines[i] + QLatin1Char('\n');
    }
    return text;
}

}  // namespace

QString masked(QString dump) {
    static const QRegularExpression date(
        QStringLiteral("[A-Z][a-z]{2} \\d{1,2}, \\d{4}, \\d{1,2}:\\d{2}\\h[AP]M"));
    static const QRegularExpression ago(QStringLiteral("\\bjust now\\b|\\b\\d+ [a-z]+ ago\\b"));
    return dump.replace(date, QStringLiteral("<date>")).replace(ago, QStringLiteral("<ago>"));
}

QString lineDifference(const QString& expected, const QString& actual) {
    if (expected == actual) return {};
    const auto before = expected.split(u'\n'), after = actual.split(u'\n');
    const auto shared = sharedLines(before, after);
    QStringList lines;
    for (qsizetype i = 0, j = 0; i < before.size() || j < after.size();) {
        const auto left = [&](qsizetype one, qsizetype other) {
            return shared[static_cast<std::size_t>(one)][static_cast<std::size_t>(other)];
        };
        if (i < before.size() && j < after.size() && before[i] == after[j])
            lines << QStringLiteral("  ") + before[i++], ++j;
        else if (j == after.size() || (i < before.size() && left(i + 1, j) >= left(i, j + 1)))
            lines << QStringLiteral("- ") + before[i++];
        else
            lines << QStringLiteral("+ ") + after[j++];
    }
    return nearChanges(lines);
}

void expectDump(const ScreenReader& reader, const QString& name) {
    if (testing::Test::HasFailure()) return;
    QFile file(QStringLiteral(BRINDLET_DUMPS "/%1.txt").arg(name));
    if (qEnvironmentVariableIsSet("BRINDLET_ACCEPT")) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.fileName().toStdString();
        file.write(toldAtRest(reader).toUtf8());
        return;
    }
    const auto expected =
        file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    auto actual = told(reader);
    for (const QDeadlineTimer deadline(patience); actual != expected && !deadline.hasExpired();
         QThread::msleep(pause))
        actual = told(reader);
    const auto difference = lineDifference(expected, actual);
    EXPECT_TRUE(difference.isEmpty())
        << "A screen reader is told something else of \"" << name.toStdString()
        << "\". If it is as it should be: tools/accept\n"
        << difference.toStdString();
}

}  // namespace brindlet::desktop
