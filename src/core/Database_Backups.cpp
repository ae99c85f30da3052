#include "core/Database_Engine.h"
#include "core/Program.h"
#include "platform/Native_Text.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr size_t most_copies = 10;
constexpr const char *day_format = "yyyyMMdd";
constexpr qint64 longest_note = 200; ///< bytes

QString Backups_folder(const QString &database_path) {
    return database_path.left(database_path.lastIndexOf('\\')) + "\\backups";
}

QString Copy_path(const Program &program, const QDate &day) {
    return Backups_folder(Database_path(program)) + "\\Vantrosk_" + day.toString(day_format) + ".mdb";
}

/// Where it is noted how the file was left after it was found sound.
QString Note_path(const QString &database_path) {
    return Backups_folder(database_path) + "\\checked.log";
}

/// Empty when the file is not there.
QByteArray Note_of(const Files &files, const QString &database_path, const QDate &checked) {
    const auto found = files.look(database_path);
    if (!found)
        return {};
    return QString("%1 %2 %3\r\n")
        .arg(checked.toString(Qt::ISODate), QString::number(found->size),
             found->modified.toUTC().toString(Qt::ISODateWithMs))
        .toUtf8();
}

Fault Engine_fault(sqlite3 *connection) {
    return {Fault_Kind::other, QString::fromUtf8(sqlite3_errmsg(connection)), sqlite3_errcode(connection)};
}

/// Copies page by page, as of one moment, into a file that is not there yet.
Fault Copy_pages(sqlite3 *from, const QString &native_path) {
    sqlite3 *to = nullptr;
    const int opened = sqlite3_open_v2(Native_bytes(native_path).constData(), &to,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    Fault fault;
    if (opened != SQLITE_OK) {
        fault = Engine_fault(to);
    } else {
        // What fails here is thrown away: it needs no journal to go back to.
        sqlite3_exec(to, "PRAGMA journal_mode=OFF", nullptr, nullptr, nullptr);
        if (sqlite3_backup *backup = sqlite3_backup_init(to, "main", from, "main")) {
            constexpr int all_pages = -1;
            sqlite3_backup_step(backup, all_pages);
            sqlite3_backup_finish(backup);
        }
        if (sqlite3_errcode(to) != SQLITE_OK)
            fault = Engine_fault(to);
    }
    sqlite3_close_v2(to);
    return fault;
}

void Remove_if_there(Program &program, const QString &path) {
    const Fault fault = program.files.remove_file(path);
    if (fault && fault.kind != Fault_Kind::not_found)
        debug_print(program, "DB_FUNCTIONS: " + fault.text);
}

/// Beside and moved over, so that a copy under its name is a whole one.
Fault Make_copy(Program &program, const QString &path) {
    if (const Fault fault = program.files.make_folder(Backups_folder(Database_path(program))))
        return fault;
    const QString part = path + ".part";
    Remove_if_there(program, part);
    Fault fault = Copy_pages(Database_state(program.database).connection, program.files.to_native(part));
    if (!fault)
        fault = program.files.move_file(part, path);
    if (fault)
        Remove_if_there(program, part);
    return fault;
}

void Remove_oldest_copies(Program &program) {
    const std::vector<Database_Copy> copies = Database_copies(program);
    for (size_t index = most_copies; index < copies.size(); ++index)
        Remove_if_there(program, copies[index].path);
}

/// A program that runs over midnight looks the file over again before it copies it.
bool Is_sound(Program &program, const QDate &today) {
    Database::State &state = Database_state(program.database);
    if (state.checked == today)
        return true;
    if (const auto damage = Damage_of(state.connection)) {
        debug_print(program, "DB_FUNCTIONS: Database file is damaged, so not copied: " + *damage);
        Forget_check(program);
        return false;
    }
    state.checked = today;
    return true;
}

} // namespace

void Database::State::close() {
    sqlite3_close_v2(connection);
    connection = nullptr;
    if (path.isEmpty() || !checked.isValid())
        return;
    const QByteArray note = Note_of(*files, path, checked);
    const QString note_path = Note_path(path);
    if (files->read_file(note_path, longest_note).value == note)
        return;
    // Without the note the next start looks the file over once more, and that is all.
    (void)files->make_folder(Backups_folder(path));
    (void)files->write_file(note_path, note);
}

bool Is_checked(const Program &program, const QString &path) {
    const auto note = program.files.read_file(Note_path(path), longest_note);
    return note.ok() && !note.value.isEmpty() &&
           note.value == Note_of(program.files, path, program.clock.now().date());
}

void Forget_check(Program &program) {
    Database_state(program.database).checked = {};
    Remove_if_there(program, Note_path(Database_path(program)));
}

std::vector<Database_Copy> Database_copies(const Program &program) {
    static const QRegularExpression copy_name(R"(^Vantrosk_(\d{8})\.mdb$)",
                                              QRegularExpression::CaseInsensitiveOption);
    const QString folder = Backups_folder(Database_path(program));
    std::vector<Database_Copy> copies;
    const auto listed = program.files.list_folder(folder);
    for (const File_Info &file : listed.value) {
        const QDate day = QDate::fromString(copy_name.match(file.name).captured(1), day_format);
        if (!file.is_folder && day.isValid())
            copies.push_back({folder + "\\" + file.name, day});
    }
    std::sort(copies.begin(), copies.end(),
              [](const Database_Copy &left, const Database_Copy &right) { return left.day > right.day; });
    return copies;
}

void Copy_before_change(Program &program) {
    Database::State &state = Database_state(program.database);
    const QDate today = program.clock.now().date();
    if (state.copied == today)
        return;
    state.copied = today; // tried once, whatever comes of it
    const QString path = Copy_path(program, today);
    if (program.files.look(path) || !Is_sound(program, today))
        return;
    if (const Fault fault = Make_copy(program, path))
        debug_print(program, "DB_FUNCTIONS: Database not copied: " + fault.text);
    else
        Remove_oldest_copies(program);
}

} // namespace vantrosk
