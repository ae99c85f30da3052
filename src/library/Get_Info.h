#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// Finds out what the selected mission is: lists its zip, extracts readme and pictures into INFO, shows the
/// readme, settles the active game, fills the details panel and makes or mends its record.
void Get_Info(Program &program, const QString &zip_name);

/// Size of the letters of the name field in points: those of a VKML readme show large, long ones smaller.
/// 0: those of the other fields.
int Name_Points(const Program &program);

} // namespace vantrosk
