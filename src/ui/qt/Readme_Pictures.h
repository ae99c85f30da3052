#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// The vector pictures of HTMLImages, beside the GIFs whose names the pages hold, where they are missing.
void Lay_out_sharp_pictures(Program &program);
/// The vector picture of a GIF that came with the program and nobody has changed; empty for any other file.
/// Native paths.
QString Sharp_picture_of(const QString &picture);

} // namespace vantrosk
