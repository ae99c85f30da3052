#pragma once

#include "platform/Fault.h"

#include <QByteArray>
#include <QString>

#include <zip.h>

#include <memory>

namespace vantrosk {

struct Zip_Closer {
    void operator()(zip_t *archive) const { zip_discard(archive); }
};
/// An archive that is closed without writing.
using Zip_Handle = std::unique_ptr<zip_t, Zip_Closer>;

/// The one place where libzip's error numbers become faults; `name` is what the sentence is about.
Fault Fault_of_zip(zip_error_t &error, const QString &name);
Fault Fault_of_zip(int zip_error, const QString &name);

/// The fault of what is no ordinary file with something in it: a folder, a pipe, an empty or missing file.
Fault Check_archive_file(const QString &native, const QString &name);

/// Opens for reading. `native` is the path, `name` what faults call it.
Result<Zip_Handle> Open_zip(const QString &native, const QString &name);

/// One entry's content, read in blocks.
class Entry_Reader {
public:
    /// `name` is what faults call the entry, `size` how long it says it is.
    Entry_Reader(zip_t *archive, zip_uint64_t index, const QString &name, qint64 size);
    ~Entry_Reader();
    Entry_Reader(const Entry_Reader &) = delete;
    Entry_Reader &operator=(const Entry_Reader &) = delete;

    /// The number of bytes put into `block`; 0 at the end, which is reached only when length and checksum are
    /// right.
    Result<qint64> read(QByteArray &block);

private:
    QString name_;
    qint64 size_;
    qint64 read_ = 0;
    zip_file_t *file_ = nullptr;
    Fault opening_;
};

} // namespace vantrosk
