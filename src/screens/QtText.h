#pragma once

#include <QString>
#include <string_view>

namespace brindlet::screens {

/// UTF-8 to the toolkit's text.
inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace brindlet::screens
