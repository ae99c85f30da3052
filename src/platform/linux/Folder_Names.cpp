#include "Folder_Names.h"

#include "Native_Io.h"
#include "Path_Map.h"

#include "platform/Native_Text.h"

namespace vantrosk {

namespace {

constexpr int most_folders = 64;
} // namespace

Folder_Names::Folder Folder_Names::read(const QByteArray &folder, const Folder_State &state) {
    Folder result;
    result.state = state;
    Folder_Reader entries(folder);
    while (const char *entry = entries.next()) {
        QByteArray &kept = result.names[Fold_name(Name_from_native(entry))];
        if (kept.isEmpty() || qstrcmp(entry, kept.constData()) < 0)
            kept = entry;
    }
    return result;
}

QByteArray Folder_Names::find(const QByteArray &folder, const QString &name) {
    const Folder_State now(folder);
    if (!now.is_there())
        return {};
    const std::lock_guard guard(lock_);
    const auto known = folders_.constFind(folder);
    if (known != folders_.constEnd() && known->state.holds(now))
        return known->names.value(Fold_name(name));
    if (folders_.size() >= most_folders)
        folders_.clear();
    const Folder &now_known = *folders_.insert(folder, read(folder, now));
    return now_known.names.value(Fold_name(name));
}

} // namespace vantrosk
