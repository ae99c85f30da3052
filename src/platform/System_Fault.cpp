#include "platform/System_Fault.h"

#include <cerrno>
#include <system_error>

namespace vantrosk {

namespace {

struct Error_Row {
    int number;
    Fault_Kind kind;
    const char *reason;
};

constexpr Error_Row error_rows[] = {
    {ENOENT, Fault_Kind::not_found, "there is no such file or folder"},
    {ENOTDIR, Fault_Kind::not_found, "a part of its path is not a folder"},
    {ENXIO, Fault_Kind::not_found, "the device is not there"},
    {ENODEV, Fault_Kind::not_found, "the device is not there"},
    {ELOOP, Fault_Kind::not_found, "its links lead in a circle"},
    {EEXIST, Fault_Kind::exists, "something of that name is in the way"},
    {EISDIR, Fault_Kind::exists, "a folder of that name is in the way"},
    {ENOTEMPTY, Fault_Kind::exists, "the folder is not empty"},
    {EACCES, Fault_Kind::no_access, "the rights do not allow it"},
    {EPERM, Fault_Kind::no_access, "the system does not allow it"},
    {EROFS, Fault_Kind::no_access, "the medium is read-only"},
    {ETXTBSY, Fault_Kind::no_access, "the program is running"},
    {EBUSY, Fault_Kind::no_access, "it is in use"},
    {ENOSPC, Fault_Kind::no_space, "the disk is full"},
#ifdef EDQUOT
    {EDQUOT, Fault_Kind::no_space, "the disk quota is used up"},
#endif
    {EFBIG, Fault_Kind::no_space, "the file would be larger than the system allows"},
    {ENAMETOOLONG, Fault_Kind::other, "the name is too long"},
    {ENOEXEC, Fault_Kind::other, "it is not a program that this system can run"},
};

} // namespace

Fault System_fault(int number, const QString &action, const QString &name) {
    Fault fault{Fault_Kind::other, QString(), number};
    QString reason;
    for (const Error_Row &row : error_rows) {
        if (row.number != number)
            continue;
        fault.kind = row.kind;
        reason = QLatin1String(row.reason);
    }
    if (reason.isEmpty())
        reason = QString::fromStdString(std::system_category().message(number));
    fault.text = QStringLiteral("Could not %1 \"%2\": %3.").arg(action, name, reason);
    return fault;
}

} // namespace vantrosk
