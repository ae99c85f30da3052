#include "core/mdlFile_Functions.h"

#include "core/Program.h"

#include <array>

namespace vantrosk {

namespace {

const QString folder_list_mark = "*#*";

struct Size_Unit {
    const char *text;
    int power; ///< of two: the unit's own size, and where it begins
};

constexpr std::array<Size_Unit, 5> size_units{
    {{" PB", 50}, {" TB", 40}, {" GB", 30}, {" MB", 20}, {" KB", 10}}};
constexpr int too_big_for_a_unit = 60;

void Trace_fault(Program &program, const char *procedure, const Fault &fault) {
    if (debug_enabled(program))
        debug_print(program, QString("File_Functions: Error In %1 : (%2) %3")
                                 .arg(procedure)
                                 .arg(fault.number)
                                 .arg(fault.text));
}

/// Rounded to 2 decimals, a half to the even neighbour; no zeros behind the last digit that counts.
QString Rounded_quotient(qint64 bytes, int power) {
    const qint64 unit = qint64(1) << power;
    const qint64 hundredfold_rest = (bytes % unit) * 100;
    qint64 hundredths = (bytes / unit) * 100 + hundredfold_rest / unit;
    const qint64 twice_the_remainder = (hundredfold_rest % unit) * 2;
    if (twice_the_remainder > unit || (twice_the_remainder == unit && hundredths % 2 == 1))
        ++hundredths;
    QString text = QString::number(hundredths / 100);
    const int fraction = static_cast<int>(hundredths % 100);
    if (fraction == 0)
        return text;
    text += fraction % 10 == 0 ? QString(".%1").arg(fraction / 10)
                               : QString(".%1").arg(fraction, 2, 10, QLatin1Char('0'));
    return text;
}

} // namespace

QStringList Split_folder_list(const QString &list, Empty_Entry empty) {
    if (empty == Empty_Entry::is_passed_over)
        return list.split(folder_list_mark, Qt::SkipEmptyParts);
    const QStringList pieces = list.split(folder_list_mark);
    return pieces.mid(0, pieces.indexOf(QString()));
}

QString Join_folder_list(const QStringList &folders) {
    QString list;
    for (const QString &folder : folders) {
        if (!folder.isEmpty())
            list += folder + folder_list_mark;
    }
    return list;
}

bool FileExists(const Program &program, const QString &path) {
    const auto found = program.files.look(path);
    return found && !found->is_folder;
}

bool FolderExists(const Program &program, const QString &path) {
    const auto found = program.files.look(path);
    return found && found->is_folder;
}

QString FileNameFromPath(const QString &path, bool forward) {
    return path.mid(path.lastIndexOf(QLatin1Char(forward ? '/' : '\\')) + 1);
}

QString FolderNameFromPath(const QString &path, bool forward) {
    const bool closed = path.endsWith(QLatin1Char('\\')) || path.endsWith(QLatin1Char('/'));
    return FileNameFromPath(closed ? path.chopped(1) : path, forward);
}

Fault DeleteFileForced(Program &program, const QString &path) {
    // Whatever hinders the lifting hinders the removal too, which then tells.
    (void)program.files.clear_attributes(path);
    Fault fault = program.files.remove_file(path);
    if (fault.kind == Fault_Kind::not_found)
        return {};
    if (fault)
        Trace_fault(program, "DeleteFileForced", fault);
    return fault;
}

Fault DeleteFileForced(Program &program, const QString &path, const QString &second_path) {
    if (!FileExists(program, path) || !FileExists(program, second_path))
        return {};
    return DeleteFileForced(program, second_path);
}

bool MoveFileCopyDelete(Program &program, const QString &from, const QString &to) {
    const QString real_source = program.files.real_path(from);
    if (!real_source.isEmpty() && real_source.compare(program.files.real_path(to), Qt::CaseInsensitive) == 0)
        return FileExists(program, to);
    if (const Fault fault = program.files.copy_file(from, to)) {
        Trace_fault(program, "MoveFileCopyDelete", fault);
        return false;
    }
    if (!FileExists(program, to))
        return false;
    (void)DeleteFileForced(program, from);
    return true;
}

bool CreateFolderTree(Program &program, const QString &path) {
    if (const Fault fault = program.files.make_folder(path)) {
        Trace_fault(program, "CreateFolderTree", fault);
        return false;
    }
    return true;
}

QString FormatSize(qint64 bytes, bool megabytes) {
    if (bytes < (qint64(1) << 10))
        return QString::number(bytes) + " Bytes";
    if (bytes >= (qint64(1) << too_big_for_a_unit))
        return {};
    if (megabytes && bytes < (qint64(1) << 30))
        return Rounded_quotient(bytes, 20) + " MB";
    for (const Size_Unit &unit : size_units) {
        if (bytes >= (qint64(1) << unit.power))
            return Rounded_quotient(bytes, unit.power) + unit.text;
    }
    return {};
}

void Empty_folder_of_files(Program &program, const QString &folder) {
    const auto entries = program.files.list_folder(folder);
    if (!entries.ok()) {
        if (entries.fault.kind != Fault_Kind::not_found)
            Trace_fault(program, "Empty_folder_of_files", entries.fault);
        return;
    }
    const QString start = folder.endsWith(QLatin1Char('\\')) ? folder : folder + "\\";
    for (const File_Info &entry : entries.value) {
        if (!entry.is_folder || entry.is_link)
            (void)DeleteFileForced(program, start + entry.name);
    }
}

} // namespace vantrosk
