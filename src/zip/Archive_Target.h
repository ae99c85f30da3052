#pragma once

#include "platform/Staged_File.h"

#include <zip.h>

#include <memory>

namespace vantrosk {

/// Where libzip writes a new archive: a staged file that is not moved to its place until the caller says so.
/// libzip's own way would rename at once and leave a file of a random name behind when it is killed.
class Archive_Target {
public:
    Archive_Target(const QString &target, const QString &temporary);

    /// A new archive on this target. The target must outlive it. Writing happens in `zip_close`.
    zip_t *open();
    /// What went wrong with the file, when writing failed.
    const Fault &fault() const { return fault_; }
    Staged_File &file() { return file_; }

private:
    static zip_int64_t Serve(void *self, void *data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t serve(void *data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t begin();
    zip_int64_t write(const void *data, zip_uint64_t length);
    zip_int64_t seek(void *data, zip_uint64_t length);

    Staged_File file_;
    qint64 position_ = 0;
    Fault fault_;
    zip_error_t error_;
};

} // namespace vantrosk
