#include "community/Download.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

#include <memory>

namespace vantrosk {

namespace {

QNetworkRequest Request_of(const QUrl &url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    request.setRawHeader("Cache-Control", "no-cache");
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Vantrosk"));
    request.setMaximumRedirectsAllowed(3);
    return request;
}

Fault Fault_of(const QNetworkReply &reply, const QString &address) {
    if (reply.error() == QNetworkReply::NoError)
        return {};
    const bool answered = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
    return {answered ? Fault_Kind::not_found : Fault_Kind::not_available,
            QStringLiteral("\"%1\" was not downloaded: %2").arg(address, reply.errorString()),
            static_cast<int>(reply.error())};
}

} // namespace

Result<QByteArray> Download(const QString &address, const Download_Limits &limits) {
    const QUrl url(address, QUrl::StrictMode);
    const bool is_web = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !is_web || url.host().isEmpty())
        return {{}, {Fault_Kind::not_available, QStringLiteral("\"%1\" is no address.").arg(address)}};

    QNetworkAccessManager manager;
    const std::unique_ptr<QNetworkReply> reply(manager.get(Request_of(url)));
    Result<QByteArray> result;
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    const auto give_up = [&](Fault_Kind kind, const char *reason) {
        result.fault = {kind, QStringLiteral("\"%1\" %2").arg(address, QLatin1String(reason))};
        reply->abort();
    };
    QObject::connect(&timer, &QTimer::timeout, &loop,
                     [&] { give_up(Fault_Kind::not_available, "did not answer in time."); });
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
        result.value += reply->readAll();
        if (result.value.size() > limits.bytes)
            give_up(Fault_Kind::too_large, "is larger than it may be.");
    });
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    timer.start(limits.milliseconds);
    if (!reply->isFinished())
        loop.exec();

    if (result.ok())
        result.fault = Fault_of(*reply, address);
    if (result.ok())
        result.value += reply->readAll();
    else
        result.value.clear();
    return result;
}

Result<QByteArray> Download_from_server(const Program &program, const QString &path,
                                        const Download_Limits &limits) {
    return Download(program.server_base_url + path, limits);
}

} // namespace vantrosk
