#include "tools/diagnostics/Diagnose_Install.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "tools/diagnostics/Diagnostic_Report.h"
#include "tools/diagnostics/Folder_Walk.h"
#include "tools/diagnostics/Reference_Names.h"
#include "tools/diagnostics/Reference_Table.h"

#include <algorithm>

namespace vantrosk {

namespace {

/// Files of this program that are expected in a game folder. Whole names: ".VKBU" means no extension.
const QString own_names = QStringLiteral("current_install.txt,original_backup.zip,allsaves,.VKBU");
constexpr int maximum_without_reference = 100;

QString Reference_path(const Program &program, const QString &reference) {
    return reference.contains(u'\\') ? reference : program.paths.references + reference;
}

/// One run: the table, the report and the outcome grow together.
class Run {
public:
    Run(Program &program, const Diagnosis_Request &request)
        : program_(program), request_(request), table_({}),
          folder_(Tidy_path(Listing_root(request.code, request.game_folder)) + u'\\'),
          own_(own_names.split(u',')) {}

    Diagnosis Work() {
        Read_table();
        result_.game_folder = folder_;
        result_.folder_exists = FolderExists(program_, folder_);
        if (result_.folder_exists)
            Walk();
        else
            report_.add_missing_folder();
        Add_missing();
        Write_page();
        result_.export_text.chop(result_.export_text.endsWith(QLatin1String("\r\n")) ? 2 : 0);
        return std::move(result_);
    }

private:
    void Read_table() {
        const QString path = Reference_path(program_, request_.reference);
        result_.reference_exists = request_.reference != QLatin1String(no_reference) &&
                                   !request_.reference.isEmpty() && FileExists(program_, path);
        if (result_.reference_exists) {
            Reference reference = Read_reference(program_, path, folder_);
            maximum_ = std::max(reference.file_count, 1);
            table_ = Reference_Table(std::move(reference.rows));
        }
        Tell_progress();
    }

    void Tell_progress() {
        if (request_.progress)
            request_.progress(std::min(found_, maximum_), maximum_);
    }

    void Walk() {
        result_.unreadable =
            Walk_game_folder(program_, folder_, [this](const Walked_Folder &walked) { Add_folder(walked); });
    }

    void Add_folder(const Walked_Folder &walked) {
        report_.open_folder(walked.level == 0 ? folder_ : walked.path, walked.level);
        for (const File_Info &file : walked.files)
            Add_file(walked.relative, file);
        Tell_progress();
    }

    void Add_file(const QString &relative, const File_Info &file) {
        const QString date = Listed_date(file.modified);
        result_.export_text += Reference_line(relative + file.name, file.size, date);
        ++result_.count;
        const QString path = folder_ + relative + file.name;
        Row_Colour colour = Compare(path, file.size, date);
        if (own_.contains(file.name))
            colour = Row_Colour::aqua;
        Note(colour, path);
        report_.add_row(colour, QString::number(file.size), date, file.name);
    }

    Row_Colour Compare(const QString &path, qint64 size, const QString &date) {
        Reference_Row *row = table_.take(path);
        if (!row)
            return Row_Colour::red;
        ++found_;
        row->status = Row_Status::different;
        bool is_number = false;
        const qint64 listed = row->size.trimmed().toLongLong(&is_number);
        if (!is_number || listed != size || row->date != date)
            return Row_Colour::orange;
        row->status = Row_Status::matched;
        return Row_Colour::none;
    }

    void Note(Row_Colour colour, const QString &path) {
        switch (colour) {
        case Row_Colour::none:
            ++result_.matched;
            break;
        case Row_Colour::red:
            result_.unexpected << path;
            break;
        case Row_Colour::orange:
            result_.different << path;
            break;
        case Row_Colour::aqua:
            result_.own << path;
            break;
        case Row_Colour::pink:
            result_.missing << path;
            break;
        }
    }

    void Add_missing() {
        report_.open_missing();
        for (const Reference_Row &row : table_.rows()) {
            if (row.path.isEmpty() || row.status != Row_Status::not_seen)
                continue;
            Note(Row_Colour::pink, row.path);
            report_.add_row(Row_Colour::pink, row.size, row.date, row.path);
        }
    }

    void Write_page() {
        const QString name =
            request_.reference.isEmpty() ? no_reference : FileNameFromPath(request_.reference);
        const QString path = program_.paths.AppPath + "\\game_diag.htm";
        const QString page = report_.page(program_, Diag_intro(request_.code), name);
        if (const Fault fault = program_.files.write_file(path, page.toUtf8()))
            result_.page_fault = fault.text;
        else
            result_.page_path = path;
    }

    Program &program_;
    const Diagnosis_Request &request_;
    Reference_Table table_;
    const QString folder_;
    const QStringList own_;
    Diagnostic_Report report_;
    Diagnosis result_;
    int found_ = 0, maximum_ = maximum_without_reference;
};

} // namespace

Diagnosis Diagnose_Install(Program &program, const Diagnosis_Request &request) {
    return Run(program, request).Work();
}

QString Export_As_Reference_File(Program &program, const QString &code, const Diagnosis &diagnosis) {
    QString exported;
    With_error_box(program, "Export_As_Reference_File", "Form frmGameDiag", [&] {
        const QString name = Dated_reference_name(program, code);
        if (const Fault fault = Write_reference(program, name, diagnosis.count,
                                                " File Generated via Vantrosk", diagnosis.export_text))
            throw Program_Error(fault.number, fault.text);
        exported = name;
    });
    if (!exported.isEmpty())
        Show_Message(program, "Game Diagnostic Tool",
                     "output saved as " + exported + " in " +
                         program.files.to_native(program.paths.references.chopped(1)));
    return exported;
}

} // namespace vantrosk
