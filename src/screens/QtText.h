#pragma once

#include <QString>
#include <initializer_list>
#include <string_view>

namespace brindlet::screens {

/// UTF-8 to the toolkit's text.
inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What a screen reader says one after another; empty pieces are left out.
inline QString spokenList(std::initializer_list<std::string_view> pieces) {
    QString list;
    for (const auto piece : pieces) {
        if (piece.empty()) continue;
        if (!list.isEmpty()) list += QLatin1String(", ");
        list += qtText(piece);
    }
    return list;
}

}  // namespace brindlet::screens
