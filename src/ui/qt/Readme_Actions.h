#pragma once

#include <QObject>

namespace vantrosk {

struct Program;
class Qt_Ui;
class Readme_Panel;
class Window_Commands;

/// Ties what one presses in the readme to the procedures.
class Readme_Actions : public QObject {
    Q_OBJECT

public:
    Readme_Actions(Program &program, Qt_Ui &ui, Window_Commands &commands, Readme_Panel &panel);
};

} // namespace vantrosk
