#include "Web_Environment.h"

#include <QDir>
#include <QtGlobal>

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrosk {

namespace {

/// The sandbox is made of user namespaces; whether one may be had is only known by asking for one.
bool User_namespaces_work() {
    const pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0)
        _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
    int state = 0;
    return waitpid(child, &state, 0) == child && WIFEXITED(state) && WEXITSTATUS(state) == 0;
}

bool Has_graphics_card() {
    const QDir devices(QStringLiteral("/dev/dri"));
    return !devices.entryList({QStringLiteral("renderD*")}, QDir::System).isEmpty();
}

void Set_unless_set(const char *name, const char *value) {
    if (!qEnvironmentVariableIsSet(name))
        qputenv(name, value);
}

} // namespace

void Prepare_web_engine() {
    if (geteuid() == 0 || !User_namespaces_work())
        Set_unless_set("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (Has_graphics_card())
        return;
    Set_unless_set("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu");
    Set_unless_set("QT_QUICK_BACKEND", "software");
}

} // namespace vantrosk
