#include "zip/Zip_Archive.h"

#include "platform/Native_File.h"
#include "platform/System_Fault.h"
#include "zip/Archive_Source.h"
#include "zip/Entry_List.h"

#include <cerrno>

namespace vantrosk {

namespace {

struct Zip_Text {
    int zip_error;
    Fault_Kind kind;
    const char *text; ///< "%1" is the name
};

constexpr Zip_Text zip_texts[] = {
    {ZIP_ER_MULTIDISK, Fault_Kind::damaged, "\"%1\" is one part of an archive in several parts."},
    {ZIP_ER_CRC, Fault_Kind::damaged, "\"%1\" is damaged: its checksum is wrong."},
    {ZIP_ER_NOENT, Fault_Kind::not_found, "There is no \"%1\"."},
    {ZIP_ER_ZLIB, Fault_Kind::damaged, "\"%1\" is damaged: it can not be unpacked."},
    {ZIP_ER_COMPRESSED_DATA, Fault_Kind::damaged, "\"%1\" is damaged: it can not be unpacked."},
    {ZIP_ER_COMPNOTSUPP, Fault_Kind::damaged, "\"%1\" is packed in a way that is not known here."},
    {ZIP_ER_EOF, Fault_Kind::damaged, "\"%1\" is cut off."},
    {ZIP_ER_READ, Fault_Kind::damaged, "\"%1\" can not be read."},
    {ZIP_ER_SEEK, Fault_Kind::damaged, "\"%1\" can not be read."},
    {ZIP_ER_NOZIP, Fault_Kind::damaged, "\"%1\" is not a zip archive."},
    {ZIP_ER_INCONS, Fault_Kind::damaged, "\"%1\" is damaged: it contradicts itself."},
    {ZIP_ER_ENCRNOTSUPP, Fault_Kind::damaged, "\"%1\" is encrypted."},
    {ZIP_ER_NOPASSWD, Fault_Kind::damaged, "\"%1\" is encrypted."},
    {ZIP_ER_WRONGPASSWD, Fault_Kind::damaged, "\"%1\" is encrypted."},
    {ZIP_ER_EXISTS, Fault_Kind::exists, "There are two files for the name \"%1\"."},
    {ZIP_ER_MEMORY, Fault_Kind::too_large, "There is not enough memory for \"%1\"."},
};

/// The archive that begins at some place in a file.
Result<Zip_Handle> Open_at(const QString &native, qint64 start, const QString &name) {
    int system_error = 0;
    zip_source_t *source = Archive_Source::Make(native, start, system_error);
    if (!source && (system_error == EACCES || system_error == EPERM))
        return {{}, {Fault_Kind::no_access, QString("\"%1\" may not be read.").arg(name), system_error}};
    if (!source)
        return {{}, Fault_of_zip(ZIP_ER_READ, name)};
    zip_error_t error;
    zip_error_init(&error);
    Zip_Handle archive(zip_open_from_source(source, ZIP_RDONLY, &error));
    const Fault fault = archive ? Fault{} : Fault_of_zip(error, name);
    zip_error_fini(&error);
    if (!archive)
        zip_source_free(source);
    return {std::move(archive), fault};
}

} // namespace

Fault Fault_of_zip(zip_error_t &error, const QString &name) {
    const int code = zip_error_code_zip(&error);
    const int number = zip_error_code_system(&error);
    const bool about_writing =
        code == ZIP_ER_WRITE || code == ZIP_ER_TMPOPEN || code == ZIP_ER_RENAME || code == ZIP_ER_CLOSE;
    if (about_writing)
        return System_fault(number ? number : EIO, "write", name);
    for (const Zip_Text &row : zip_texts)
        if (row.zip_error == code)
            return {row.kind, QString::fromLatin1(row.text).arg(name), number};
    return {
        Fault_Kind::other,
        QString("\"%1\" can not be read: %2.").arg(name, QString::fromLocal8Bit(zip_error_strerror(&error))),
        number};
}

Fault Fault_of_zip(int zip_error, const QString &name) {
    zip_error_t error;
    zip_error_init_with_code(&error, zip_error);
    const Fault fault = Fault_of_zip(error, name);
    zip_error_fini(&error);
    return fault;
}

Fault Check_archive_file(const QString &native, const QString &name) {
    std::error_code none;
    const std::filesystem::path path = Native_path(native);
    const std::filesystem::file_status found = std::filesystem::status(path, none);
    if (!std::filesystem::exists(found))
        return Fault_of_zip(ZIP_ER_NOENT, name);
    if (std::filesystem::is_directory(found))
        return {Fault_Kind::damaged, QString("\"%1\" is a folder, not a zip archive.").arg(name)};
    if (!std::filesystem::is_regular_file(found))
        return Fault_of_zip(ZIP_ER_NOZIP, name);
    if (std::filesystem::file_size(path, none) == 0)
        return {Fault_Kind::damaged, QString("\"%1\" is empty.").arg(name)};
    return {};
}

Result<Zip_Handle> Open_zip(const QString &native, const QString &name) {
    if (const Fault fault = Check_archive_file(native, name))
        return {{}, fault};
    Result<Zip_Handle> opened = Open_at(native, 0, name);
    if (opened.ok())
        return opened;
    // libzip counts offsets from the file's start and does not look for an archive behind other bytes.
    if (const qint64 before = Bytes_before_archive(native)) {
        Result<Zip_Handle> behind = Open_at(native, before, name);
        if (behind.ok())
            return behind;
    }
    return opened;
}

Entry_Reader::Entry_Reader(zip_t *archive, zip_uint64_t index, const QString &name, qint64 size)
    : name_(name), size_(size), file_(zip_fopen_index(archive, index, 0)) {
    if (!file_)
        opening_ = Fault_of_zip(*zip_get_error(archive), name_);
}

Entry_Reader::~Entry_Reader() {
    if (file_)
        zip_fclose(file_);
}

Result<qint64> Entry_Reader::read(QByteArray &block) {
    if (opening_)
        return {0, opening_};
    const zip_int64_t count = zip_fread(file_, block.data(), static_cast<zip_uint64_t>(block.size()));
    if (count < 0)
        return {0, Fault_of_zip(*zip_file_get_error(file_), name_)};
    read_ += count;
    if (read_ > size_ || (count == 0 && read_ < size_))
        return {0, {Fault_Kind::damaged, QString("\"%1\" is damaged: its length is wrong.").arg(name_)}};
    return {count, {}};
}

} // namespace vantrosk
