#pragma once

#include "core/Screen.h"
#include "install/Play.h"

#include <QJsonObject>

namespace vantrosk {

struct Program;

/// The JSON values of the console face. Field names are a stable contract; "..._path" fields are native.
QJsonObject Row_json(const Fm_Row &row);
QJsonObject Scan_json(const Program &program);
QJsonObject Info_json(const Program &program);
QJsonObject Install_json(bool installed, const QStringList &panel_1_texts);
QJsonObject Play_json(const Play_Result &result);

/// The last text other than "Ready": the outcome of an install.
QString Outcome_of(const QStringList &panel_1_texts);

} // namespace vantrosk
