#pragma once

#include "tools/plugin_tools/Plugin_Tools.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QComboBox;
class QListWidget;
class QPushButton;

namespace vantrosk {

struct Program;
class Qt_Ui;

/// What is asked about a tool that is added or changed.
class frmTools_Options : public QDialog {
    Q_OBJECT

public:
    /// `path`: the tool's file, for the user's eyes. The file of a tool that is there already is not copied.
    frmTools_Options(Program &program, const QString &path, const Tool_Options &options, bool is_new,
                     QWidget *parent);
    Tool_Options options() const;

private:
    void Fill_run_when(const QString &run_when);

    Program &program_;
    QLineEdit *name_, *tip_, *arguments_;
    QCheckBox *copies_, *waits_;
    QComboBox *run_when_;
};

/// The user's tools, and what the program has of its own.
class frmTools : public QDialog {
    Q_OBJECT

public:
    frmTools(Program &program, Qt_Ui &ui, QWidget *parent);

    void Refresh();
    QListWidget *list() const { return list_; }
    QPushButton *button(const char *name) const;

private:
    QWidget *Make_buttons();
    QWidget *Make_built_in();
    QPushButton *Add_button(const char *name, const QString &text, const QString &tip,
                            void (frmTools::*work)());
    void Guarded(const char *procedure, const std::function<void()> &work);
    const Listed_Tool *current() const;
    void Refresh_buttons();
    void Run_current();
    void Add();
    void Change();
    void Delete();
    void Register_codec();

    Program &program_;
    Qt_Ui &ui_;
    QListWidget *list_;
    QLabel *empty_;
    QCheckBox *codec_at_launch_;
    QPushButton *run_ = nullptr, *change_ = nullptr, *delete_ = nullptr;
    std::vector<Listed_Tool> items_;
};

} // namespace vantrosk
