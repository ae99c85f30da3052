#include "tools/diagnostics/Folder_Walk.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

namespace {

class Walk {
public:
    Walk(Program &program, const std::function<void(const Walked_Folder &)> &visit)
        : program_(program), visit_(visit) {}

    void Enter(const QString &path, const QString &relative, int level) {
        auto entries = program_.files.list_folder(path);
        if (!entries.ok()) {
            debug_print(program_, "TOOLS: folder not listed: " + entries.fault.text);
            unreadable << path;
        }
        Walked_Folder folder{path, relative, level, {}};
        QStringList subfolders;
        for (File_Info &entry : entries.value) {
            if (!entry.is_folder && Is_there(path, entry))
                folder.files.push_back(std::move(entry));
            else if (entry.is_folder && !entry.is_link && level < deepest_level)
                subfolders << entry.name;
        }
        visit_(folder);
        folder = {};
        program_.ui.pump_events();
        for (const QString &name : subfolders)
            Enter(path + u'\\' + name, relative + name + u'\\', level + 1);
    }

    QStringList unreadable;

private:
    /// A link to nowhere is listed by the system, but it is no file.
    bool Is_there(const QString &path, const File_Info &entry) const {
        return !entry.is_link || FileExists(program_, path + u'\\' + entry.name);
    }

    Program &program_;
    const std::function<void(const Walked_Folder &)> &visit_;
};

} // namespace

QStringList Walk_game_folder(Program &program, const QString &folder,
                             const std::function<void(const Walked_Folder &)> &visit) {
    Walk walk(program, visit);
    walk.Enter(folder.endsWith(u'\\') ? folder.chopped(1) : folder, QString(), 0);
    return walk.unreadable;
}

} // namespace vantrosk
