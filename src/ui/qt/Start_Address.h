#pragma once

#include <QString>
#include <QUrl>

namespace vantrosk {

struct Program;

/// Where a page is shown that the readme browser was sent to.
enum class Page_Place {
    file,          ///< a Windows path or "about:blank": behind the fence of its folders
    page_view,     ///< the start page or the news that the user has configured
    users_browser, ///< any other address of the world
    nowhere        ///< an address of a kind that nobody follows
};

struct Placed_Page {
    Page_Place place = Page_Place::nowhere;
    QString file; ///< Windows path or "about:blank"
    QUrl address; ///< of the world
};

/// What is configured is trusted as far as a page without scripts can be; nothing else of the world is ever
/// shown inside the window.
Placed_Page Place_page(const Program &program, const QString &page);

} // namespace vantrosk
