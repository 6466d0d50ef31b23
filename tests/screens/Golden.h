#pragma once

#include <QImage>
#include <string>

#include "screens/Stage.h"

namespace brindlet::testing {

/// The window in the smallest size it may have, once nothing in it moves.
QImage pictureOf(const Stage& stage);

/// Fails the test when the picture is not the one that lies under that name in
/// tests/screens/goldens; then what was expected, what came and their difference lie in the build
/// folder. Where BRINDLET_ACCEPT is set, the picture becomes the one that is expected.
void expectGolden(const std::string& name, const QImage& picture);

}  // namespace brindlet::testing
