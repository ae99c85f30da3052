#pragma once

#include "Refusing_Files.h"

#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "support/World.h"
#include "ui/settings/Settings_Controls.h"

#include <gtest/gtest.h>

namespace vantrosk {

/// A program with nothing set up, its settings open, and games that lie in the Wine prefix's drive C.
class Settings_World : public World {
public:
    Settings_World() {
        auto refusing = std::make_unique<Refusing_Files>(std::move(platform.files));
        disk = refusing.get();
        platform.files = std::move(refusing);
        set_debug(program(), true);
        program().server_base_url = "http://vantrosk.example";
        reopen();
    }
    void reopen() {
        controls = Open_Settings(program());
        controls.make_reference = [this](Program &, const QString &folder, const QString &code) {
            listed << code + " " + folder;
            return reference_fails ? QString() : "DIAG_" + code + "_20260303_1200.VKDR";
        };
    }
    /// A file of drive C; the path is native below it.
    void drive_c(const QString &path, const QByteArray &content = "MZ") {
        write("prefix/drive_c/" + path, content);
    }
    /// The registry of the prefix in use: "key\\value" and data of each line.
    void registry(const std::vector<std::pair<QString, QString>> &values, const QString &prefix = "prefix") {
        QString text = "WINE REGISTRY Version 2\n";
        for (auto [path, data] : values) {
            const qsizetype end = path.lastIndexOf('\\');
            text += "\n[" + path.left(end).replace("\\", "\\\\") + "] 1700000000\n\"" + path.mid(end + 1) +
                    "\"=\"" + data.replace("\\", "\\\\") + "\"\n";
        }
        write(prefix + "/system.reg", text.toUtf8());
    }
    /// The text of every box, its title before it where it has one.
    QStringList said() const {
        QStringList texts;
        for (const Box &box : ui.boxes)
            texts << (box.title.isEmpty() ? box.text : box.title + ": " + box.text);
        return texts;
    }
    QString folder_of(const QString &code) const { return controls.of(code).game_folder; }

    Refusing_Files *disk; ///< the platform's
    Settings_Controls controls;
    QStringList listed; ///< "CODE FOLDER" of each reference file that was asked for
    bool reference_fails = false;
};

inline QString Offer_text(const QString &game) {
    return "Create Initial Game Diagnostic File?: Would you like Vantrosk to create a Game Diagnostic "
           "Reference "
           "File for your " +
           game +
           " install?\r\n\r\nA Diagnostic Reference File can be used in the GAME DIAGNOSTIC TOOL to "
           "determine if "
           "you currently have a clean " +
           game + " install.";
}

} // namespace vantrosk
