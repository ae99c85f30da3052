#pragma once

#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

#include <map>

namespace vantrosk {

/// A web server of a few lines on this computer's own port. Needs Qt6::Network and an application object.
class Local_Server : public QTcpServer {
public:
    Local_Server() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(socket); });
        });
    }
    /// Without a "/" at its end.
    QString base() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }

    std::map<QString, QByteArray> pages;     ///< by path and query; all else is 404
    std::map<QString, QByteArray> redirects; ///< the same, where to
    QStringList asked;                       ///< path and query of every request
    QByteArray last_request;
    bool never_answers = false, never_ends = false;

private:
    void Answer(QTcpSocket *socket) {
        last_request = socket->readAll();
        const QString path = QString::fromUtf8(last_request.split(' ').value(1));
        asked << path;
        if (never_answers)
            return;
        const auto page = pages.find(path);
        const auto redirect = redirects.find(path);
        const QByteArray body = page == pages.end() ? QByteArray() : page->second;
        QByteArray head = "HTTP/1.1 404 Not Found";
        if (redirect != redirects.end())
            head = "HTTP/1.1 302 Found\r\nLocation: " + redirect->second;
        else if (page != pages.end())
            head = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nSet-Cookie: a=b";
        if (!never_ends)
            head += "\r\nContent-Length: " + QByteArray::number(body.size());
        socket->write(head + "\r\nConnection: close\r\n\r\n" + body);
        if (!never_ends)
            socket->disconnectFromHost();
    }
};

} // namespace vantrosk
