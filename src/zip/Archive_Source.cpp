#include "zip/Archive_Source.h"

#include "platform/Native_File.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace vantrosk {

namespace {

constexpr qint64 block_size = 64 * 1024;

} // namespace

Archive_Source::Archive_Source(qint64 start) : start_(start) {
    zip_error_init(&error_);
}

zip_source_t *Archive_Source::Make(const QString &native, qint64 start, int &system_error) {
    std::unique_ptr<Archive_Source> self(new Archive_Source(start));
    errno = 0;
    if (!Open_native_file(self->file_, native)) {
        system_error = errno;
        return nullptr;
    }
    self->size_ = std::max<qint64>(0, self->file_.size() - start);
    zip_source_t *source = zip_source_function_create(&Archive_Source::Serve, self.get(), nullptr);
    if (source)
        (void)self.release();
    return source;
}

zip_int64_t Archive_Source::Serve(void *self, void *data, zip_uint64_t length, zip_source_cmd_t command) {
    auto *source = static_cast<Archive_Source *>(self);
    if (command != ZIP_SOURCE_FREE)
        return source->serve(data, length, command);
    delete source;
    return 0;
}

zip_int64_t Archive_Source::serve(void *data, zip_uint64_t length, zip_source_cmd_t command) {
    switch (command) {
    case ZIP_SOURCE_OPEN:
        position_ = 0;
        return 0;
    case ZIP_SOURCE_CLOSE:
        return 0;
    case ZIP_SOURCE_READ:
        return read(static_cast<char *>(data), static_cast<qint64>(length));
    case ZIP_SOURCE_SEEK:
        return seek(data, length);
    case ZIP_SOURCE_TELL:
        return position_;
    case ZIP_SOURCE_STAT:
        return stat(static_cast<zip_stat_t *>(data));
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&error_, data, length);
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    default:
        zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
}

bool Archive_Source::fill() {
    if (position_ >= block_position_ && position_ < block_position_ + block_.size())
        return true;
    block_.clear();
    block_position_ = position_;
    errno = 0;
    if (file_.seek(start_ + position_))
        block_ = file_.read(std::min(block_size, size_ - position_));
    if (!block_.isEmpty())
        return true;
    zip_error_set(&error_, ZIP_ER_READ, errno ? errno : EIO);
    return false;
}

zip_int64_t Archive_Source::read(char *data, qint64 length) {
    const qint64 wanted = std::min(length, std::max<qint64>(0, size_ - position_));
    for (qint64 done = 0; done < wanted;) {
        if (!fill())
            return -1;
        const qint64 offset = position_ - block_position_;
        const qint64 count = std::min(wanted - done, block_.size() - offset);
        std::memcpy(data + done, block_.constData() + offset, static_cast<size_t>(count));
        done += count;
        position_ += count;
    }
    return wanted;
}

zip_int64_t Archive_Source::seek(void *data, zip_uint64_t length) {
    const zip_int64_t position = zip_source_seek_compute_offset(
        static_cast<zip_uint64_t>(position_), static_cast<zip_uint64_t>(size_), data, length, &error_);
    if (position < 0)
        return -1;
    position_ = position;
    return 0;
}

zip_int64_t Archive_Source::stat(zip_stat_t *stat) {
    zip_stat_init(stat);
    stat->valid = ZIP_STAT_SIZE;
    stat->size = static_cast<zip_uint64_t>(size_);
    return sizeof(*stat);
}

} // namespace vantrosk
