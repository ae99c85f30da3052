#include "zip/Zip_Sources.h"

#include <QRegularExpression>

#include <algorithm>

namespace vantrosk {

namespace {

bool Is_full_path(const QString &spec) {
    return spec.startsWith(u'\\') || (spec.size() > 1 && spec[1] == u':');
}

bool Is_pattern(const QString &part) {
    return part.contains(u'*') || part.contains(u'?');
}

/// Whether a file name matches: "*" is any text, "?" any character, and "*.*" also what has no dot.
bool Matches(const QString &name, const QString &pattern) {
    if (pattern == "*.*")
        return true;
    QString expression = QRegularExpression::escape(pattern);
    expression.replace("\\*", ".*").replace("\\?", ".");
    const QRegularExpression matcher(QRegularExpression::anchoredPattern(expression),
                                     QRegularExpression::CaseInsensitiveOption |
                                         QRegularExpression::DotMatchesEverythingOption);
    return matcher.match(name).hasMatch();
}

} // namespace

Zip_Source_Finder::Zip_Source_Finder(const Files &files, const QString &base, bool store_folder_names,
                                     bool recurse)
    : files_(files), base_(base), store_folder_names_(store_folder_names), recurse_(recurse) {
    base_.replace(u'/', u'\\');
    if (!base_.endsWith(u'\\'))
        base_ += u'\\';
}

Fault Zip_Source_Finder::find(const QString &spec) {
    QString path = spec;
    path.replace(u'/', u'\\');
    if (!Is_full_path(path))
        path = base_ + path;
    const qsizetype cut = path.lastIndexOf(u'\\');
    const QString last = path.mid(cut + 1);
    if (Is_pattern(last))
        return find_in_folder(path.left(cut), last);
    const std::optional<File_Info> info = files_.look(path);
    if (!info)
        return {Fault_Kind::not_found, QString("There is no \"%1\".").arg(path)};
    if (!info->is_folder)
        return add(path);
    return recurse_ ? find_in_folder(path, "*.*") : Fault{};
}

/// Files first, then the folders below, each in binary order.
Fault Zip_Source_Finder::find_in_folder(const QString &folder, const QString &pattern) {
    const Result<std::vector<File_Info>> listing = files_.list_folder(folder);
    if (listing.fault.kind == Fault_Kind::not_found)
        return {};
    if (!listing.ok())
        return listing.fault;
    for (const File_Info &info : listing.value)
        if (!info.is_folder && Matches(info.name, pattern))
            if (const Fault fault = add(folder + "\\" + info.name))
                return fault;
    for (const File_Info &info : listing.value)
        // A link may lead in a circle, or to what belongs to somebody else.
        if (recurse_ && info.is_folder && !info.is_link)
            if (const Fault fault = find_in_folder(folder + "\\" + info.name, pattern))
                return fault;
    return {};
}

Fault Zip_Source_Finder::add(const QString &path) {
    if (left_out_.contains(path.toCaseFolded()) || found_.contains(path))
        return {};
    found_.insert(path);
    const QString stored = stored_name(path);
    if (names_.contains(stored))
        return {Fault_Kind::exists, QString("Two files would be named \"%1\" in the archive.").arg(stored)};
    names_.insert(stored);
    sources_.push_back({path, stored});
    return {};
}

QString Zip_Source_Finder::stored_name(const QString &path) const {
    if (!store_folder_names_)
        return path.mid(path.lastIndexOf(u'\\') + 1);
    QString name = path;
    if (path.startsWith(base_, Qt::CaseInsensitive))
        name = path.mid(base_.size());
    else if (path.size() > 1 && path[1] == u':')
        name = path.mid(2);
    while (name.startsWith(u'\\'))
        name.remove(0, 1);
    return name.replace(u'\\', u'/');
}

} // namespace vantrosk
