#include "core/Window_State.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *section = "FORMSETTINGS";
constexpr const char *automatic_columns = "FLEXGRID_COLUMNS_AUTOMATIC"; ///< beside the widths: whose they are
constexpr int normal_state = 0, maximised_state = 2;
constexpr int width_when_absent = 1000;
constexpr int longest_length = 32767; ///< what a window can be wide

struct Optional_Column {
    int column;
    bool Tweaks::*is_shown;
};

constexpr Optional_Column optional_columns[] = {
    {col_author, &Tweaks::ENABLE_COL_AUTHOR},
    {col_size, &Tweaks::ENABLE_COL_SIZE},
    {col_zip_date, &Tweaks::ENABLE_COL_ZIPDATE},
    {col_category, &Tweaks::ENABLE_COl_CATEGORY},
};

QString Column_key(std::size_t column) {
    return QString("FLEXGRID_COLUMN%1WIDTH").arg(column);
}

QString Stored(const Program &program, const QString &key) {
    return program.platform.settings->value(section, key);
}

void Store(Program &program, const QString &key, int value) {
    if (const Fault fault = program.platform.settings->set_value(section, key, QString::number(value)))
        debug_print(program, "FUNCTIONS: Error In Save_Status : (" + QString::number(fault.number) + ") " +
                                 fault.text);
}

/// A length from the store, where anybody may write; `otherwise` when it is none.
int Stored_length(const Program &program, const QString &key, int otherwise) {
    bool is_number = false;
    const int length = Stored(program, key).toInt(&is_number);
    return is_number && length >= 0 && length <= longest_length ? length : otherwise;
}

void Store_form(Program &program, const Window_Geometry &window) {
    if (window.minimised)
        return;
    Store(program, "FULLSCREEN", window.maximised ? maximised_state : normal_state);
    if (window.maximised)
        return;
    Store(program, "FORMWIDTH", window.width);
    Store(program, "FORMHEIGHT", window.height);
}

void Store_columns(Program &program, const Window_Geometry &window) {
    if (!window.column_widths.empty())
        Store(program, automatic_columns, window.columns_are_automatic ? 1 : 0);
    for (std::size_t column = 0; column < window.column_widths.size(); ++column) {
        // A column that is switched off has no width now; the one it had is wanted when it comes back.
        if (Column_Is_Shown(program, static_cast<int>(column)))
            Store(program, Column_key(column), window.column_widths[column]);
    }
}

} // namespace

bool Column_Is_Shown(const Program &program, int column) {
    for (const Optional_Column &optional : optional_columns) {
        if (optional.column == column)
            return program.tweaks.*(optional.is_shown);
    }
    return true;
}

void Save_Status(Program &program, Saved_Status kind, bool with_columns) {
    const Window_Geometry &window = program.screen.window;
    if (!window.is_there || window.is_covered)
        return;
    Set_Status_Light(program, 2);
    Set_Status_Panel(program, 1, "Saving Status");
    if (kind == Saved_Status::form)
        Store_form(program, window);
    if (kind == Saved_Status::splitter)
        Store(program, "FLEXGRIDHEIGHT", window.list_height);
    if (kind == Saved_Status::column_widths || with_columns)
        Store_columns(program, window);
    Set_Status_Panel(program, 1, "Status Saved");
    Set_Status_Light(program, 1);
}

void Restore_Window_Geometry(Program &program) {
    Window_Geometry &window = program.screen.window;
    window.maximised = Stored_length(program, "FULLSCREEN", normal_state) == maximised_state;
    window.width = Stored_length(program, "FORMWIDTH", 0);
    window.height = Stored_length(program, "FORMHEIGHT", 0);
    window.list_height = Stored_length(program, "FLEXGRIDHEIGHT", 0);
}

void Restore_Column_Widths(Program &program) {
    std::vector<int> &widths = program.screen.window.column_widths;
    widths.clear();
    program.screen.window.columns_are_automatic = Stored(program, automatic_columns) == QLatin1String("1");
    if (Stored(program, Column_key(0)).isEmpty())
        return;
    for (std::size_t column = 0; column < column_count; ++column) {
        const bool is_shown = Column_Is_Shown(program, static_cast<int>(column));
        widths.push_back(is_shown ? Stored_length(program, Column_key(column), width_when_absent) : 0);
    }
}

} // namespace vantrosk
