#pragma once

#include <QByteArray>
#include <QFile>

#include <zip.h>

namespace vantrosk {

/// What libzip reads an archive from: a file, from some place on, in large blocks. libzip's own file source
/// asks the system for each few KiB.
class Archive_Source {
public:
    /// The source libzip takes over and frees; null when the file can not be opened or there is no memory.
    /// `start` is where the archive begins in the file.
    static zip_source_t *Make(const QString &native, qint64 start, int &system_error);

private:
    explicit Archive_Source(qint64 start);
    static zip_int64_t Serve(void *self, void *data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t serve(void *data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t read(char *data, qint64 length);
    zip_int64_t seek(void *data, zip_uint64_t length);
    zip_int64_t stat(zip_stat_t *stat);
    bool fill();

    QFile file_;
    qint64 start_;
    qint64 size_ = 0;     ///< of the archive
    qint64 position_ = 0; ///< in the archive
    QByteArray block_;
    qint64 block_position_ = 0; ///< of the block's first byte in the archive
    zip_error_t error_;
};

} // namespace vantrosk
