#include "zip/mZip.h"

#include "platform/Native_File.h"
#include "platform/Native_Text.h"
#include "zip/Archive_Target.h"
#include "zip/Zip_Archive.h"
#include "zip/Zip_Sources.h"

#include <QFile>

#include <algorithm>
#include <cerrno>

namespace vantrosk {

namespace {

constexpr qsizetype block_size = 128 * 1024;

QString Name_of_path(const QString &path) {
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

/// The archive that is being made. Whatever is not closed properly is thrown away.
class New_Archive {
public:
    New_Archive(Archive_Target &target, const QString &name)
        : target_(target), name_(name), archive_(target.open()) {}

    Fault add(const QString &native, const QString &stored) {
        if (!archive_)
            return Fault_of_zip(ZIP_ER_MEMORY, name_);
        std::error_code none;
        if (!std::filesystem::is_regular_file(Native_path(native), none))
            return {Fault_Kind::not_found, QString("There is no \"%1\".").arg(stored)};
        zip_source_t *source = zip_source_file(archive_.get(), Native_bytes(native).constData(), 0, -1);
        if (!source)
            return Fault_of_zip(*zip_get_error(archive_.get()), stored);
        const zip_int64_t index =
            zip_file_add(archive_.get(), stored.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
        if (index < 0) {
            zip_source_free(source);
            return Fault_of_zip(*zip_get_error(archive_.get()), stored);
        }
        zip_set_file_compression(archive_.get(), static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 0);
        return {};
    }

    Fault set_comment(const QString &comment) {
        const QByteArray bytes = comment.toUtf8();
        if (bytes.isEmpty() || !archive_)
            return {};
        if (bytes.size() > ZIP_UINT16_MAX || zip_set_archive_comment(archive_.get(), bytes.constData(),
                                                                     static_cast<zip_uint16_t>(bytes.size())))
            return {Fault_Kind::too_large, QString("The comment of \"%1\" is too long.").arg(name_)};
        return {};
    }

    /// Writes everything; all reading and packing happens here.
    Fault finish() {
        if (zip_close(archive_.get()) == 0) {
            (void)archive_.release();
            return {};
        }
        return target_.fault() ? target_.fault() : Fault_of_zip(*zip_get_error(archive_.get()), name_);
    }

private:
    Archive_Target &target_;
    QString name_;
    Zip_Handle archive_;
};

Fault Differs(const QString &stored) {
    return {Fault_Kind::damaged,
            QString("\"%1\" in the new archive is not what was to be packed.").arg(stored)};
}

/// Reads an entry back and compares it with its source, byte for byte.
Fault Compare_entry(zip_t *archive, zip_uint64_t index, const QString &native, const QString &stored) {
    zip_stat_t stat;
    if (zip_stat_index(archive, index, ZIP_FL_ENC_RAW, &stat) != 0 || stored.toUtf8() != stat.name)
        return Differs(stored);
    QFile source;
    if (!Open_native_file(source, native))
        return Differs(stored);
    Entry_Reader reader(archive, index, stored, static_cast<qint64>(stat.size));
    QByteArray packed(block_size, Qt::Uninitialized);
    for (;;) {
        const Result<qint64> count = reader.read(packed);
        if (!count.ok())
            return count.fault;
        if (count.value == 0)
            return source.read(1).isEmpty() ? Fault{} : Differs(stored);
        if (source.read(count.value) != packed.left(count.value))
            return Differs(stored);
    }
}

} // namespace

cZip::cZip(Files &files) : files_(files) {}

void cZip::ClearFileSpecs() {
    specs_.clear();
}

void cZip::AddFileSpec(const QString &spec) {
    specs_ << spec;
}

int cZip::FileSpecCount() const {
    return static_cast<int>(specs_.size());
}

const QStringList &cZip::Zipped_files() const {
    return zipped_;
}

Fault cZip::Zip() {
    zipped_.clear();
    const QString temporary = ZipFile + zip_temporary_suffix;
    Zip_Source_Finder finder(files_, BasePath, StoreFolderNames, RecurseSubDirs);
    finder.leave_out(ZipFile);
    finder.leave_out(temporary);
    for (const QString &spec : specs_)
        if (const Fault fault = finder.find(spec))
            return fault;
    const QString name = Name_of_path(ZipFile);
    if (finder.sources().empty())
        return {Fault_Kind::not_found, QString("There is nothing to put into \"%1\".").arg(name)};

    Archive_Target target(files_.to_native(ZipFile), files_.to_native(temporary));
    if (const Fault fault = write(target, finder.sources()))
        return fault;
    if (const Fault fault = target.file().close())
        return fault;
    if (const Fault fault = read_back(target.file().temporary(), finder.sources()))
        return fault;
    if (const Fault fault = target.file().keep({}, Outlives::a_loss_of_power))
        return fault;
    for (const Zip_Source &source : finder.sources())
        zipped_ << source.path;
    return {};
}

Fault cZip::write(Archive_Target &target, const std::vector<Zip_Source> &sources) const {
    New_Archive archive(target, Name_of_path(ZipFile));
    for (const Zip_Source &source : sources) {
        if (Progress)
            Progress(source.stored);
        if (const Fault fault = archive.add(files_.to_native(source.path), source.stored))
            return fault;
    }
    if (const Fault fault = archive.set_comment(Comment))
        return fault;
    return archive.finish();
}

Fault cZip::read_back(const QString &native, const std::vector<Zip_Source> &sources) const {
    const Result<Zip_Handle> opened = Open_zip(native, Name_of_path(ZipFile));
    if (!opened.ok())
        return opened.fault;
    zip_t *archive = opened.value.get();
    if (zip_get_num_entries(archive, 0) != static_cast<zip_int64_t>(sources.size()))
        return {Fault_Kind::damaged,
                QString("\"%1\" does not hold what was packed.").arg(Name_of_path(ZipFile))};
    for (size_t i = 0; i < sources.size(); ++i)
        if (const Fault fault =
                Compare_entry(archive, i, files_.to_native(sources[i].path), sources[i].stored))
            return fault;
    return {};
}

bool Zip_Single_File(Files &files, const QString &path, bool store_folder_names) {
    const qsizetype cut = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1;
    const qsizetype dot = path.lastIndexOf(u'.');
    cZip zip(files);
    zip.ZipFile = (dot > cut ? path.left(dot) : path) + ".zip";
    zip.BasePath = path.left(cut);
    zip.ClearFileSpecs();
    zip.AddFileSpec(path.mid(cut));
    zip.StoreFolderNames = store_folder_names;
    zip.RecurseSubDirs = false;
    return !zip.Zip();
}

} // namespace vantrosk
