#pragma once

#include "platform/Files.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

namespace vantrosk {

/// The folder that entries are extracted to. Finds the place of each entry below it: names meet existing ones
/// without case, folders are made, and nothing leads outside. What lies on disk is listed once per folder, so
/// that thousands of entries are not thousands of listings.
class Target_Folder {
public:
    /// `root` is a Windows path.
    Target_Folder(Files &files, const QString &root);

    /// Makes the folder when it is missing.
    Fault prepare();
    /// Where a file goes.
    struct Place {
        QString native;
        bool taken = false; ///< something of that name is there
    };
    /// The place of a file of these parts, its folders made. The parts are safe ones.
    Result<Place> place(const QStringList &parts);
    /// To be told of each file written, so that the next entry of that name finds it.
    void note_file(const QString &native_path);
    /// Native path of the folder itself.
    const QString &native() const { return native_; }

private:
    struct Level {
        QString native;
        QSet<QString> exact;            ///< names as on disk
        QHash<QString, QString> folded; ///< without case -> as on disk
    };
    Result<Level *> level(const QStringList &folders);
    Result<QString> enter(const Level &parent, const QString &name) const;
    static QString spelling(const Level &level, const QString &name);
    static void add_name(Level &level, const QString &name);

    Files &files_;
    QString root_, native_, canonical_;
    QHash<QString, Level> levels_; ///< by native path
};

} // namespace vantrosk
