#include "support/Places.h"

QString Source_folder() {
    return QStringLiteral(VANTROSK_SOURCE_DIR);
}

QString Build_folder() {
    return QStringLiteral(VANTROSK_BINARY_DIR);
}
