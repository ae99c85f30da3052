#pragma once

class QImage;

namespace vantrosk {

/// All screens side by side. Where the system shows its screens to nobody, the program's own windows as they
/// lie there. Null without a screen.
QImage Take_screen_picture();

} // namespace vantrosk
