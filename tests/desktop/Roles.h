#pragma once

#include <QString>

/// What the accessibility bus calls the kinds of things that the program shows.
namespace brindlet::desktop::role {

inline const QString alert = QStringLiteral("alert message");
inline const QString application = QStringLiteral("application");
inline const QString button = QStringLiteral("push button");
inline const QString checkBox = QStringLiteral("check box");
inline const QString comboBox = QStringLiteral("combo box");
inline const QString dialog = QStringLiteral("dialog");
inline const QString frame = QStringLiteral("frame");
inline const QString heading = QStringLiteral("heading");
inline const QString label = QStringLiteral("label");
inline const QString list = QStringLiteral("list");
inline const QString listItem = QStringLiteral("list item");
inline const QString progressBar = QStringLiteral("progress bar");
inline const QString radioButton = QStringLiteral("radio button");
inline const QString text = QStringLiteral("text");

}  // namespace brindlet::desktop::role
