#pragma once

#include <QString>

namespace vantrosk {

/// What a generated page must never hold is found by reading it as strictly as can be: every tag and
/// attribute must be one of a short list, every address of a kind that does no harm. Empty when all is well,
/// else what is wrong and where.
QString Wrong_in_page(const QString &html);

/// The words that a reader sees, tags left out, the commonest entities read.
QString Seen_text(const QString &html);

} // namespace vantrosk
