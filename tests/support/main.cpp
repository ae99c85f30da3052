#include "platform/linux/Linux_Platform.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    vantrosk::Prepare_linux_process();
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
