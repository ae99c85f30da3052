#include "ui/qt/Theme.h"
#include "ui/qt/Web_Environment.h"

#include <QApplication>

#include <gtest/gtest.h>

static void Load_icons() {
    Q_INIT_RESOURCE(icons);
}

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    vantrosk::Prepare_web_engine();
    QApplication application(argc, argv);
    Load_icons();
    return RUN_ALL_TESTS();
}
