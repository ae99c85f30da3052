#include "zip/mUnzip.h"

#include "platform/Native_File.h"
#include "platform/Staged_File.h"
#include "zip/Entry_List.h"
#include "zip/Entry_Names.h"
#include "zip/Target_Folder.h"
#include "zip/Zip_Archive.h"

#include <QFile>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr qsizetype block_size = 128 * 1024;

/// Last part of a path with either separator, for sentences.
QString Name_of_path(const QString &path) {
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

/// Whether the file's owner could start it where the archive was made.
bool Was_executable(zip_t *archive, zip_uint64_t index) {
    constexpr zip_uint32_t owner_may_start = 0100u << 16;
    zip_uint8_t system = ZIP_OPSYS_DOS;
    zip_uint32_t attributes = 0;
    return zip_file_get_external_attributes(archive, index, 0, &system, &attributes) == 0 &&
           system == ZIP_OPSYS_UNIX && (attributes & owner_may_start) != 0;
}

bool Is_method_known(zip_t *archive, zip_uint64_t index) {
    zip_stat_t stat;
    return zip_stat_index(archive, index, 0, &stat) == 0 && (stat.valid & ZIP_STAT_COMP_METHOD) != 0 &&
           zip_compression_method_supported(stat.comp_method, 0) != 0;
}

/// What one run of `Unzip` needs for each of its files.
struct Extraction {
    zip_t *archive;
    const Entry_List &list;
    Target_Folder &target;
    bool use_folder_names;
    bool overwrite_existing;
    qint64 size_limit;
    QByteArray block;
};

Fault Has_changed(const QString &archive) {
    return {Fault_Kind::damaged, QString("\"%1\" is not what it was when it was listed.").arg(archive)};
}

Fault Too_large(const QString &name, qint64 limit) {
    return {Fault_Kind::too_large,
            QString("\"%1\" is longer than the %2 bytes that are allowed.").arg(name).arg(limit)};
}

Fault Copy_content(Extraction &run, const Listed_Entry &entry, const QString &name, Staged_File &file) {
    Entry_Reader reader(run.archive, entry.index, name, entry.size);
    qint64 written = 0;
    for (;;) {
        const Result<qint64> count = reader.read(run.block);
        if (!count.ok() || count.value == 0)
            return count.fault;
        written += count.value;
        if (run.size_limit > 0 && written > run.size_limit)
            return Too_large(name, run.size_limit);
        if (const Fault fault = file.write(run.block.constData(), count.value))
            return fault;
    }
}

/// A link to one can be replaced.
bool Is_own_folder(const QString &native) {
    std::error_code none;
    return std::filesystem::symlink_status(Native_path(native), none).type() ==
           std::filesystem::file_type::directory;
}

Fault Extract_entry(Extraction &run, const Listed_Entry &entry, const Unzip_Progress &progress) {
    const QString name = run.list.name(entry);
    const QStringList parts =
        run.use_folder_names ? Entry_name_parts(name) : QStringList{run.list.file(entry)};
    const Result<Target_Folder::Place> found = run.target.place(parts);
    if (!found.ok())
        return found.fault;
    const Target_Folder::Place &place = found.value;
    if (place.taken && !run.overwrite_existing)
        return {};
    if (place.taken && Is_own_folder(place.native))
        return {Fault_Kind::exists, QString("A folder stands where the file \"%1\" should be.").arg(name)};
    if (progress)
        progress(name);
    if (run.size_limit > 0 && entry.size > run.size_limit)
        return Too_large(name, run.size_limit);
    Staged_File file(place.native, run.target.native() + "/" + unzip_temporary_name);
    if (const Fault fault = file.open())
        return fault;
    if (const Fault fault = Copy_content(run, entry, name, file))
        return fault;
    if (Was_executable(run.archive, entry.index))
        file.set_executable();
    if (const Fault fault = file.keep(entry.date()))
        return fault;
    run.target.note_file(place.native);
    return {};
}

} // namespace

struct cUnzip::State {
    QString listed_file; ///< what `Directory` read
    Entry_List list;
    QFile plain;        ///< the archive, open while its list was read without libzip
    Zip_Handle archive; ///< opened when that is not enough

    const Listed_Entry *entry(int i) const {
        return i >= 1 && static_cast<size_t>(i) <= list.entries.size()
                   ? &list.entries[static_cast<size_t>(i) - 1]
                   : nullptr;
    }
};

cUnzip::cUnzip(Files &files) : files_(files), state_(std::make_unique<State>()) {}

cUnzip::~cUnzip() = default;

Fault cUnzip::Directory() {
    Close();
    const QString native = files_.to_native(ZipFile);
    if (const Fault fault = Check_archive_file(native, Name_of_path(ZipFile)))
        return fault;
    if (!Open_native_file(state_->plain, native) || !Read_plain_directory(state_->plain, state_->list)) {
        state_->plain.close();
        state_->list.clear();
        if (const Fault fault = Open_archive())
            return fault;
        Read_open_archive(state_->archive.get(), state_->list);
    }
    state_->listed_file = ZipFile;
    return {};
}

void cUnzip::Close() {
    state_->listed_file.clear();
    state_->list.clear();
    state_->plain.close();
    state_->archive.reset();
}

Fault cUnzip::Open_archive() const {
    if (state_->archive)
        return {};
    Result<Zip_Handle> opened = Open_zip(files_.to_native(ZipFile), Name_of_path(ZipFile));
    state_->archive = std::move(opened.value);
    return opened.fault;
}

QString cUnzip::Comment() const {
    return Decode_entry_name(state_->list.comment, false);
}

int cUnzip::FileCount() const {
    return static_cast<int>(state_->list.entries.size());
}

QString cUnzip::Filename(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry ? state_->list.file(*entry) : QString();
}

QString cUnzip::FileDirectory(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry ? state_->list.folder(*entry) : QString();
}

qint64 cUnzip::FileSize(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry ? entry->size : 0;
}

int cUnzip::FileCompressionRatio(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    if (!entry || entry->size <= 0 || entry->packed >= entry->size)
        return 0;
    const double saved = static_cast<double>(entry->size - entry->packed) / static_cast<double>(entry->size);
    return static_cast<int>(saved * 100 + 0.5);
}

QByteArrayView cUnzip::StoredFilename(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry ? state_->list.stored_file(*entry) : QByteArrayView();
}

QDateTime cUnzip::FileDate(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry ? entry->date() : QDateTime();
}

bool cUnzip::FileIsSafe(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry && state_->list.folder_is_safe(*entry) && Is_safe_name_part(state_->list.file(*entry));
}

bool cUnzip::FileSelected(int i) const {
    const Listed_Entry *entry = state_->entry(i);
    return entry && entry->selected;
}

void cUnzip::FileSelected(int i, bool selected) {
    if (state_->entry(i))
        state_->list.entries[static_cast<size_t>(i) - 1].selected = selected;
}

/// Refuses before anything is written what could not be written in the end.
Fault cUnzip::Check_selected() const {
    const QString archive = Name_of_path(ZipFile);
    const Entry_List &list = state_->list;
    for (const Listed_Entry &entry : list.entries) {
        if (!entry.selected)
            continue;
        if ((UseFolderNames && !list.folder_is_safe(entry)) || !Is_safe_name_part(list.file(entry)))
            return {Fault_Kind::outside, QString("\"%1\" in \"%2\" is not a name that can be unzipped.")
                                             .arg(list.name(entry), archive)};
        if (entry.encrypted)
            return {Fault_Kind::damaged,
                    QString("\"%1\" in \"%2\" is encrypted.").arg(list.name(entry), archive)};
    }
    if (const Fault fault = Open_archive())
        return fault;
    for (const Listed_Entry &entry : list.entries) {
        if (!entry.selected)
            continue;
        if (!Is_same_entry(state_->archive.get(), list, entry))
            return Has_changed(archive);
        if (!Is_method_known(state_->archive.get(), entry.index))
            return {Fault_Kind::not_available,
                    QString("\"%1\" in \"%2\" is packed by a method that Vantrosk does not know.")
                        .arg(list.name(entry), archive)};
    }
    return {};
}

Fault cUnzip::Unzip() {
    if (state_->listed_file.isEmpty() || state_->listed_file != ZipFile)
        if (const Fault fault = Directory())
            return fault;
    if (const Fault fault = Check_selected())
        return fault;
    Target_Folder target(files_, UnzipFolder);
    if (const Fault fault = target.prepare())
        return fault;
    Extraction run{state_->archive.get(),
                   state_->list,
                   target,
                   UseFolderNames,
                   OverwriteExisting,
                   SizeLimit,
                   QByteArray(block_size, Qt::Uninitialized)};
    for (const Listed_Entry &entry : state_->list.entries)
        if (entry.selected)
            if (const Fault fault = Extract_entry(run, entry, Progress))
                return fault;
    return {};
}

Result<QByteArray> cUnzip::Read_entry(int i, qint64 limit) const {
    const Listed_Entry *entry = state_->entry(i);
    if (!entry)
        return {{},
                {Fault_Kind::not_found,
                 QString("There is no entry %1 in \"%2\".").arg(i).arg(Name_of_path(ZipFile))}};
    const Entry_List &list = state_->list;
    if (entry->encrypted)
        return {{}, Fault_of_zip(ZIP_ER_NOPASSWD, list.name(*entry))};
    if (state_->plain.isOpen())
        if (const auto content = Read_plain_entry(state_->plain, list, *entry, limit))
            return {*content, {}};
    if (const Fault fault = Open_archive())
        return {{}, fault};
    if (!Is_same_entry(state_->archive.get(), list, *entry))
        return {{}, Has_changed(Name_of_path(ZipFile))};
    Entry_Reader reader(state_->archive.get(), entry->index, list.name(*entry), entry->size);
    QByteArray content;
    QByteArray block(block_size, Qt::Uninitialized);
    while (content.size() < limit) {
        const Result<qint64> count = reader.read(block);
        if (!count.ok())
            return {{}, count.fault};
        if (count.value == 0)
            break;
        content.append(block.constData(), std::min(count.value, limit - content.size()));
    }
    return {content, {}};
}

bool Unzip_Files(Files &files, const QString &zip, const QString &destination) {
    cUnzip archive(files);
    archive.ZipFile = zip;
    archive.UnzipFolder = destination;
    archive.UseFolderNames = true;
    return !archive.Unzip();
}

} // namespace vantrosk
