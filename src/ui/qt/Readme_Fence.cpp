#include "Readme_Fence.h"

#include <QFileInfo>
#include <QUrlQuery>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineSettings>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr qsizetype address_limit = 4096; ///< characters that another program is given

const QUrl &Blank_page() {
    static const QUrl blank(QStringLiteral("about:blank"));
    return blank;
}

bool Is_web(const QUrl &address) {
    static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp")};
    return schemes.contains(address.scheme()) && !address.host().isEmpty();
}

bool Is_local(const QUrl &address) {
    return address.isLocalFile() && address.host().isEmpty();
}

void Switch_off(QWebEngineSettings *settings) {
    using Attribute = QWebEngineSettings::WebAttribute;
    constexpr Attribute off[] = {
        QWebEngineSettings::JavascriptEnabled,
        QWebEngineSettings::JavascriptCanOpenWindows,
        QWebEngineSettings::JavascriptCanAccessClipboard,
        QWebEngineSettings::JavascriptCanPaste,
        QWebEngineSettings::AllowWindowActivationFromJavaScript,
        QWebEngineSettings::PluginsEnabled,
        QWebEngineSettings::PdfViewerEnabled,
        QWebEngineSettings::LocalStorageEnabled,
        QWebEngineSettings::LocalContentCanAccessRemoteUrls,
        QWebEngineSettings::AllowRunningInsecureContent,
        QWebEngineSettings::AllowGeolocationOnInsecureOrigins,
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
    settings->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
    settings->setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
}

} // namespace

void Readme_Folders::Set(const QStringList &folders) {
    site_.clear();
    folders_.clear();
    for (const QString &folder : folders)
        if (const QString real = QFileInfo(folder).canonicalFilePath(); !real.isEmpty())
            folders_ << (real.endsWith(u'/') ? real : real + u'/');
}

void Readme_Folders::Set_site(const QUrl &address) {
    site_ = address;
}

bool Readme_Folders::Holds(const QUrl &address) const {
    if (!Is_local(address))
        return false;
    const QString path = address.toLocalFile();
    if (path.contains(QChar(u'\0')))
        return false;
    const QString real = QFileInfo(path).canonicalFilePath();
    return !real.isEmpty() && QFileInfo(real).isFile() &&
           std::any_of(folders_.begin(), folders_.end(),
                       [&real](const QString &folder) { return real.startsWith(folder); });
}

bool Readme_Folders::Is_of_the_site(const QUrl &address) const {
    const QString scheme = address.scheme();
    return !site_.isEmpty() && (scheme == QLatin1String("http") || scheme == QLatin1String("https")) &&
           scheme == site_.scheme() && address.host() == site_.host() && address.port() == site_.port() &&
           address.userInfo().isEmpty();
}

QUrl Readme_Folders::Other_spelling(const QUrl &address) const {
    const QUrl spelled = find_spelling ? QUrl::fromLocalFile(find_spelling(address.toLocalFile())) : QUrl();
    return Holds(spelled) ? spelled : QUrl();
}

/// "../HTMLImages/vk8.gif" means the program's folder wherever the page lies.
QUrl Readme_Folders::In_shared_folder(const QUrl &address) const {
    const QFileInfo wanted(address.toLocalFile());
    const QString parent = wanted.path().section(u'/', -1);
    for (const QString &folder : shared_folders) {
        if (QFileInfo(folder).fileName().compare(parent, Qt::CaseInsensitive) != 0)
            continue;
        const QUrl place = QUrl::fromLocalFile(folder + u'/' + wanted.fileName());
        return Holds(place) ? place : Other_spelling(place);
    }
    return {};
}

QUrl Readme_Folders::Place_of(const QUrl &address) const {
    if (!Is_local(address))
        return {};
    QUrl place = Holds(address) ? address : Other_spelling(address);
    if (place.isEmpty())
        place = In_shared_folder(address);
    if (place.isEmpty() || !find_sharper)
        return place;
    const QString sharper = find_sharper(place.toLocalFile());
    const QUrl better = sharper.isEmpty() ? QUrl() : QUrl::fromLocalFile(sharper);
    return Holds(better) ? better : place;
}

QUrl Address_for_the_world(const QUrl &address) {
    if (!address.isValid() || address.toEncoded().size() > address_limit)
        return {};
    if (Is_web(address))
        return address;
    if (address.scheme() != QLatin1String("mailto"))
        return {};
    const QUrlQuery told(address);
    QUrlQuery kept;
    for (const char *item : {"subject", "body"})
        for (const auto &[name, value] : told.queryItems(QUrl::FullyEncoded))
            if (name.compare(QLatin1String(item), Qt::CaseInsensitive) == 0 &&
                !kept.hasQueryItem(QLatin1String(item)))
                kept.addQueryItem(QLatin1String(item), value);
    QUrl mail = address;
    mail.setFragment(QString());
    mail.setQuery(kept.isEmpty() ? QString() : kept.query(QUrl::FullyEncoded));
    return mail;
}

Readme_Request_Fence::Readme_Request_Fence(const Readme_Folders &folders, QObject *parent)
    : QWebEngineUrlRequestInterceptor(parent), folders_(folders) {}

void Readme_Request_Fence::interceptRequest(QWebEngineUrlRequestInfo &info) {
    const QUrl address = info.requestUrl();
    const bool reads = info.requestMethod() == "GET" || info.requestMethod() == "HEAD";
    if (address == Blank_page() || (reads && folders_.Is_of_the_site(address)))
        return;
    QUrl file = address;
    file.setFragment(QString());
    file.setQuery(QString());
    const QUrl place = reads ? folders_.Place_of(file) : QUrl();
    if (place.isEmpty())
        info.block(true);
    else if (place != file)
        info.redirect(place);
}

QWebEngineProfile *Make_fenced_profile(const Readme_Folders &folders, QObject *parent) {
    // A profile without a name keeps nothing on the disk.
    auto *profile = new QWebEngineProfile(parent);
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile->cookieStore()->setCookieFilter(
        [](const QWebEngineCookieStore::FilterRequest &) { return false; });
    profile->setSpellCheckEnabled(false);
    profile->setUrlRequestInterceptor(new Readme_Request_Fence(folders, profile));
    QObject::connect(profile, &QWebEngineProfile::downloadRequested, profile,
                     [](QWebEngineDownloadRequest *download) { download->cancel(); });
    return profile;
}

Readme_Page::Readme_Page(QWebEngineProfile *profile, const Readme_Folders &folders, QObject *parent)
    : QWebEnginePage(profile, parent), folders_(folders) {
    Switch_off(settings());
    Refuse_requests();
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest &request) {
                if (request.isUserInitiated())
                    Click(request.requestedUrl());
            });
}

void Readme_Page::Refuse_requests() {
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl &origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
}

bool Readme_Page::acceptNavigationRequest(const QUrl &address, NavigationType type, bool is_main_frame) {
    if (!is_main_frame)
        return false;
    switch (type) {
    case NavigationTypeLinkClicked:
        if (take_link && take_link(address))
            return false;
        if (folders_.Holds(address))
            return true;
        Click(address);
        return false;
    case NavigationTypeTyped:
    case NavigationTypeBackForward:
    case NavigationTypeReload:
        return address == Blank_page() || folders_.Holds(address) || folders_.Is_of_the_site(address);
    case NavigationTypeRedirect:
        return folders_.Is_of_the_site(address);
    default:
        return false;
    }
}

void Readme_Page::Click(const QUrl &address) {
    if (const QUrl place = folders_.Place_of(address); !place.isEmpty()) {
        // Not from within the browser's own question.
        QMetaObject::invokeMethod(
            this, [this, place] { load(place); }, Qt::QueuedConnection);
        return;
    }
    if (const QUrl leaving = Address_for_the_world(address); !leaving.isEmpty())
        Q_EMIT Link_clicked(leaving);
}

} // namespace vantrosk
