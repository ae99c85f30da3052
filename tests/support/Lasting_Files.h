#pragma once

#include "install/Stepping.h"

#include <QStringList>

namespace vantrosk {

/// Passes everything on, and notes what was written so that it outlives a loss of power.
class Lasting_Files : public Stepping_Files {
public:
    using Stepping_Files::Stepping_Files;
    Fault write_lasting_file(const QString &path, const QByteArray &bytes) override {
        lasting << path;
        return write_file(path, bytes);
    }

    QStringList lasting;
};

} // namespace vantrosk
