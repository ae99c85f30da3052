#include "Start_Address.h"

#include "core/Program.h"

#include <QRegularExpression>

namespace vantrosk {

namespace {

/// "www.x.org" is what people type.
QUrl Address_of(const QString &page) {
    const bool has_no_scheme = page.startsWith(QLatin1String("www."), Qt::CaseInsensitive);
    return QUrl(has_no_scheme ? QStringLiteral("http://") + page : page, QUrl::StrictMode);
}

bool Is_configured(const Program &program, const QString &page) {
    const QString &start = program.tweaks.STARTUP_PAGE;
    if (start == QLatin1String("VANTROSK NEWS"))
        return page == program.server_base_url + QStringLiteral("/news.pl");
    return page == start;
}

} // namespace

Placed_Page Place_page(const Program &program, const QString &page) {
    static const QRegularExpression windows_path(QStringLiteral("^[A-Za-z]:[\\\\/]"));
    if (page.isEmpty() || page.startsWith(u'\\') || windows_path.match(page).hasMatch() ||
        page.compare(QLatin1String("about:blank"), Qt::CaseInsensitive) == 0)
        return {Page_Place::file, page, {}};
    const QUrl address = Address_of(page);
    if (address.isLocalFile())
        return {Page_Place::file, program.files.to_windows(address.toLocalFile()), {}};
    const QString scheme = address.scheme();
    const bool is_of_the_world =
        (scheme == QLatin1String("http") || scheme == QLatin1String("https")) && !address.host().isEmpty();
    if (!is_of_the_world)
        return {};
    return {Is_configured(program, page) ? Page_Place::page_view : Page_Place::users_browser, {}, address};
}

} // namespace vantrosk
