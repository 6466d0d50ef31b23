#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "words/Mark.h"

/// What a mark tells at a glance, for QML: `Tone.Plain`, `Tone.Green`, `Tone.Orange`.
namespace brindlet::screens::tones {

Q_NAMESPACE
QML_NAMED_ELEMENT(Tone)

enum Value { Plain, Green, Orange };
Q_ENUM_NS(Value)

inline int of(const Mark& mark) {
    switch (mark.tone) {
        case brindlet::Tone::green:
            return Green;
        case brindlet::Tone::orange:
            return Orange;
        case brindlet::Tone::plain:
            break;
    }
    return Plain;
}

}  // namespace brindlet::screens::tones
