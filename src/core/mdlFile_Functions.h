#pragma once

#include "platform/Fault.h"
#include "platform/Outlives.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

struct Program;

/// "Vantrosk.ini" and "Vantrosk_Tweaks.ini": pairs of lines, a key in brackets and its value. Lines end in
/// CR LF. Read once at start, after `Set_Display_Defaults`. A value that its type can not hold is passed over
/// and shows the error box once per file; an empty boolean or number leaves what was there. Sets `first_run`
/// when one of the files is missing.
void Read_Ini_Files(Program &program);
Fault Write_Main_Ini(Program &program);
Fault Write_Tweaks_Ini(Program &program);
/// What holds until a file says otherwise. Values without a default of their own stay as they are.
void Set_Display_Defaults(Program &program);
void set_default_fonts(Program &program);

/// The pairs of one of the two files, in writing order, keys without brackets.
struct Ini_Pair {
    QString key;
    QString value;
};
std::vector<Ini_Pair> Main_ini_pairs(const Program &program);
std::vector<Ini_Pair> Tweaks_ini_pairs(const Program &program);
/// Sets the one value of that key (no brackets, spelled exactly); an empty text empties it (false, 0). False
/// for an unknown key or a value that the program would not understand there (core/Ini_Rules.h).
bool Set_main_ini_value(Program &program, const QString &key, const QString &value);
bool Set_tweaks_ini_value(Program &program, const QString &key, const QString &value);
/// What kind of text a main key holds, for a face that turns native paths into Windows paths at the door.
enum class Ini_Kind { text, folder, folder_list, file, boolean, integer };
Ini_Kind Main_ini_kind(const QString &key);

enum class Empty_Entry { ends_the_list, is_passed_over };
/// Folder lists: each piece has "*#*" behind it; the list is read up to its first empty piece, or without
/// those.
QStringList Split_folder_list(const QString &list, Empty_Entry empty = Empty_Entry::ends_the_list);
QString Join_folder_list(const QStringList &folders);

bool FileExists(const Program &program, const QString &path);
bool FolderExists(const Program &program, const QString &path);
/// Text behind the last separator: "/" when `forward`, else "\".
QString FileNameFromPath(const QString &path, bool forward = false);
/// Last folder name; a trailing separator of either kind is cut first.
QString FolderNameFromPath(const QString &path, bool forward = false);
/// Clears what blocks deletion and deletes; a missing file is no failure.
Fault DeleteFileForced(Program &program, const QString &path);
/// With a second path both must exist (else nothing happens), and the second is the one deleted.
Fault DeleteFileForced(Program &program, const QString &path, const QString &second_path);
/// Copies, and deletes the source once the copy exists; tells whether `to` exists. A copy that failed is no
/// move: false, and `from` stays, even with an older `to` in place.
bool MoveFileCopyDelete(Program &program, const QString &from, const QString &to);
bool CreateFolderTree(Program &program, const QString &path);
/// "512 Bytes", "1.5 KB", ... rounded to 2 decimals, a half to the even digit; with `megabytes`, "MB" from
/// 2^10 up to 2^30. Empty from 2^60 up.
QString FormatSize(qint64 bytes, bool megabytes = false);
/// Deletes the files directly in a folder, links included; folders stay.
void Empty_folder_of_files(Program &program, const QString &folder);

/// Text of bytes from anywhere: UTF-8 when valid, UTF-16 with its mark, else Windows-1252.
QString Decode_text(const QByteArray &bytes);
/// The lines of a text one by one, for who may stop early. Lines end at CR LF, LF or CR; a line is cut at 64
/// KiB.
class Line_Reader {
public:
    explicit Line_Reader(QString text) : text_(std::move(text)) {}
    bool next(QString &line); ///< false at the end

private:
    QString text_;
    qsizetype start_ = 0;
};
/// All of them.
QStringList Split_lines(const QString &text);
/// A readme or any other text from outside, at most 8 MiB of it; empty when it can not be read.
QString Read_text(const Program &program, const QString &path);
/// The same in lines.
QStringList Read_text_lines(const Program &program, const QString &path);
/// The first line of a small text file; empty when there is none.
QString First_line(const Program &program, const QString &path);
/// UTF-8, every line ended by CR LF, written beside and moved over.
Fault Write_text_lines(Program &program, const QString &path, const QStringList &lines,
                       Outlives outlives = Outlives::a_kill);

} // namespace vantrosk
