#include "Readme_Fence.h"

#include <QFileInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include <algorithm>

namespace vantrosk {

namespace {

const QUrl &Blank_page() {
    static const QUrl blank(QStringLiteral("about:blank"));
    return blank;
}

bool Leads_to_the_world(const QUrl &address) {
    static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp"),
                                     QStringLiteral("mailto")};
    return schemes.contains(address.scheme());
}

void Switch_off(QWebEngineSettings *settings) {
    using Attribute = QWebEngineSettings::WebAttribute;
    constexpr Attribute off[] = {
        QWebEngineSettings::JavascriptEnabled,
        QWebEngineSettings::JavascriptCanOpenWindows,
        QWebEngineSettings::JavascriptCanAccessClipboard,
        QWebEngineSettings::PluginsEnabled,
        QWebEngineSettings::PdfViewerEnabled,
        QWebEngineSettings::LocalStorageEnabled,
        QWebEngineSettings::LocalContentCanAccessRemoteUrls,
        QWebEngineSettings::HyperlinkAuditingEnabled,
        QWebEngineSettings::AutoLoadIconsForPage,
        QWebEngineSettings::DnsPrefetchEnabled,
        QWebEngineSettings::FullScreenSupportEnabled,
        QWebEngineSettings::ScreenCaptureEnabled,
        QWebEngineSettings::WebGLEnabled,
        QWebEngineSettings::NavigateOnDropEnabled,
        QWebEngineSettings::ErrorPageEnabled,
    };
    for (const Attribute attribute : off)
        settings->setAttribute(attribute, false);
}

} // namespace

void Readme_Folders::Set(const QStringList &folders) {
    folders_.clear();
    for (const QString &folder : folders)
        if (const QString real = QFileInfo(folder).canonicalFilePath(); !real.isEmpty())
            folders_ << (real.endsWith(u'/') ? real : real + u'/');
}

bool Readme_Folders::Holds(const QUrl &address) const {
    if (!address.isLocalFile() || !address.host().isEmpty())
        return false;
    const QString real = QFileInfo(address.toLocalFile()).canonicalFilePath();
    return !real.isEmpty() && QFileInfo(real).isFile() &&
           std::any_of(folders_.begin(), folders_.end(),
                       [&real](const QString &folder) { return real.startsWith(folder); });
}

QUrl Readme_Folders::Other_spelling(const QUrl &address) const {
    if (!find_spelling || !address.isLocalFile() || !address.host().isEmpty())
        return {};
    const QUrl spelled = QUrl::fromLocalFile(find_spelling(address.toLocalFile()));
    return spelled != address && Holds(spelled) ? spelled : QUrl();
}

Readme_Request_Fence::Readme_Request_Fence(const Readme_Folders &folders, QObject *parent)
    : QWebEngineUrlRequestInterceptor(parent), folders_(folders) {}

void Readme_Request_Fence::interceptRequest(QWebEngineUrlRequestInfo &info) {
    const QUrl address = info.requestUrl();
    if (address == Blank_page() || folders_.Holds(address))
        return;
    const QUrl spelled = folders_.Other_spelling(address);
    if (spelled.isEmpty())
        info.block(true);
    else
        info.redirect(spelled);
}

Readme_Page::Readme_Page(QWebEngineProfile *profile, const Readme_Folders &folders, QObject *parent)
    : QWebEnginePage(profile, parent), folders_(folders) {
    Switch_off(settings());
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest &request) {
                if (request.isUserInitiated())
                    Click(request.requestedUrl());
            });
}

bool Readme_Page::acceptNavigationRequest(const QUrl &address, NavigationType type, bool is_main_frame) {
    if (!is_main_frame)
        return false;
    switch (type) {
    case NavigationTypeLinkClicked:
        if (folders_.Holds(address))
            return true;
        Click(address);
        return false;
    case NavigationTypeTyped:
    case NavigationTypeBackForward:
    case NavigationTypeReload:
        return address == Blank_page() || folders_.Holds(address);
    default:
        return false;
    }
}

void Readme_Page::Click(const QUrl &address) {
    if (Leads_to_the_world(address))
        Q_EMIT Link_clicked(address);
}

} // namespace vantrosk
