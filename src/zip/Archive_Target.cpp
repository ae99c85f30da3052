#include "zip/Archive_Target.h"

#include <cerrno>
#include <cstdio>

namespace vantrosk {

Archive_Target::Archive_Target(const QString &target, const QString &temporary) : file_(target, temporary) {
    zip_error_init(&error_);
}

zip_t *Archive_Target::open() {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *source = zip_source_function_create(&Archive_Target::Serve, this, &error);
    zip_t *archive = source ? zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, &error) : nullptr;
    if (!archive && source)
        zip_source_free(source);
    zip_error_fini(&error);
    return archive;
}

zip_int64_t Archive_Target::Serve(void *self, void *data, zip_uint64_t length, zip_source_cmd_t command) {
    return static_cast<Archive_Target *>(self)->serve(data, length, command);
}

zip_int64_t Archive_Target::serve(void *data, zip_uint64_t length, zip_source_cmd_t command) {
    switch (command) {
    case ZIP_SOURCE_BEGIN_WRITE:
        return begin();
    case ZIP_SOURCE_WRITE:
        return write(data, length);
    case ZIP_SOURCE_SEEK_WRITE:
        return seek(data, length);
    case ZIP_SOURCE_TELL_WRITE:
        return position_;
    case ZIP_SOURCE_STAT: // how libzip asks whether there is an archive to begin with
        zip_error_set(&error_, ZIP_ER_READ, ENOENT);
        return -1;
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&error_, data, length);
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_WRITABLE;
    case ZIP_SOURCE_OPEN:
        zip_error_set(&error_, ZIP_ER_OPEN, ENOENT);
        return -1;
    case ZIP_SOURCE_COMMIT_WRITE:
    case ZIP_SOURCE_ROLLBACK_WRITE:
    case ZIP_SOURCE_REMOVE:
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
        return 0;
    default:
        zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
}

zip_int64_t Archive_Target::begin() {
    fault_ = file_.open();
    position_ = 0;
    if (fault_)
        zip_error_set(&error_, ZIP_ER_TMPOPEN, fault_.number);
    return fault_ ? -1 : 0;
}

zip_int64_t Archive_Target::write(const void *data, zip_uint64_t length) {
    const auto count = static_cast<qint64>(length);
    fault_ = file_.write_at(position_, static_cast<const char *>(data), count);
    if (fault_) {
        zip_error_set(&error_, ZIP_ER_WRITE, fault_.number);
        return -1;
    }
    position_ += count;
    return count;
}

zip_int64_t Archive_Target::seek(void *data, zip_uint64_t length) {
    const zip_int64_t position = zip_source_seek_compute_offset(
        static_cast<zip_uint64_t>(position_), static_cast<zip_uint64_t>(file_.size()), data, length, &error_);
    if (position < 0)
        return -1;
    position_ = position;
    return 0;
}

} // namespace vantrosk
