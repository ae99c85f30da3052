#pragma once

#include "platform/Fault.h"

#include <QByteArray>
#include <QString>

namespace vantrosk {

struct Program;

/// What a download may cost.
struct Download_Limits {
    int milliseconds = 30 * 1000;    ///< from the request to the last byte
    qint64 bytes = qint64(16) << 20; ///< a longer answer is `too_large`
};

/// Fetches one address of the web, "http" or "https", past every cache, without cookies and following
/// redirections only within its own site. Lets events through until the answer is there, so that the window
/// repaints: whoever calls it keeps a second call away. An answer other than success is `not_found`; one that
/// does not come in time is `not_available`.
Result<QByteArray> Download(const QString &address, const Download_Limits &limits = {});

/// The same from the community server; `path` begins with "/" and is encoded as a URL wants it.
Result<QByteArray> Download_from_server(const Program &program, const QString &path,
                                        const Download_Limits &limits = {});

/// What a browser would show of an answer as text: tags, scripts and comments left out, entities as the signs
/// that they stand for. An answer without tags is its own text.
QString Inner_text(const QByteArray &answer);

} // namespace vantrosk
