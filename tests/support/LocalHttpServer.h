// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A scripted HTTP/1.1 server on 127.0.0.1, on its own thread so it answers while the test blocks; unknown paths answer 404.
#include "TestSupport.h"

#include <QDir>
#include <QHash>
#include <QMutex>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

class LocalHttpServer
{
public:
    enum class Behaviour { Answer, NeverAnswer, Trickle };
    struct Response
    {
        int status = 200;
        QByteArray body;
        Behaviour behaviour = Behaviour::Answer;
        QByteArray location = {}; // for redirects
    };

    LocalHttpServer()
    {
        m_thread.start();
        m_context->moveToThread(&m_thread);
        QMetaObject::invokeMethod(m_context, [this] { listen(); }, Qt::BlockingQueuedConnection);
    }
    ~LocalHttpServer()
    {
        QMetaObject::invokeMethod(m_context, [this] { delete m_context; }, Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }

    QUrl url(const QString &path = QStringLiteral("/")) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_port).arg(path));
    }
    void setResponse(const QString &path, const Response &response)
    {
        QMutexLocker locker(&m_mutex);
        m_responses.insert(path, response);
    }
    void setBody(const QString &path, const QByteArray &body) { setResponse(path, Response{200, body}); }
    // Called on the server's thread with the path and query of every request without a script.
    using Handler = std::function<std::optional<Response>(const QString &pathAndQuery)>;
    void setHandler(Handler handler)
    {
        QMutexLocker locker(&m_mutex);
        m_handler = std::move(handler);
    }
    // Every file of the folder, under the path prefix (ending in "/").
    void serveDirectory(const QString &folder, const QString &prefix)
    {
        const QDir dir(folder);
        for (const QString &name : dir.entryList(QDir::Files))
            setBody(prefix + name, TestSupport::readFile(dir.filePath(name)));
    }
    QStringList requestedPaths() const
    {
        QMutexLocker locker(&m_mutex);
        return m_requests;
    }

private:
    void listen()
    {
        auto *server = new QTcpServer(m_context);
        server->listen(QHostAddress::LocalHost, 0);
        m_port = server->serverPort();
        QObject::connect(server, &QTcpServer::newConnection, server, [this, server] {
            while (QTcpSocket *socket = server->nextPendingConnection())
                serve(socket);
        });
    }

    void serve(QTcpSocket *socket)
    {
        auto head = std::make_shared<QByteArray>();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, head] {
            if (head->contains("\r\n\r\n")) // answered already
                return;
            head->append(socket->readAll());
            if (!head->contains("\r\n\r\n"))
                return;
            const QList<QByteArray> requestLine = head->left(head->indexOf("\r\n")).split(' ');
            const QString path = QString::fromLatin1(requestLine.value(1));
            QMutexLocker locker(&m_mutex);
            m_requests << path;
            std::optional<Response> response;
            if (m_responses.contains(path))
                response = m_responses.value(path);
            else if (m_handler)
                response = m_handler(path);
            reply(socket, response.value_or(Response{404, "Not Found"}));
        });
    }

    static void reply(QTcpSocket *socket, const Response &response)
    {
        if (response.behaviour == Behaviour::NeverAnswer)
            return;
        QByteArray head = "HTTP/1.1 " + QByteArray::number(response.status) + " Scripted\r\nContent-Length: "
                          + QByteArray::number(response.body.size()) + "\r\n";
        if (!response.location.isEmpty())
            head += "Location: " + response.location + "\r\n";
        socket->write(head + "Connection: close\r\n\r\n");
        if (response.behaviour == Behaviour::Answer) {
            socket->write(response.body);
            return socket->disconnectFromHost();
        }
        // Slow but steady: 64 bytes every 5 ms.
        auto timer = new QTimer(socket);
        auto offset = std::make_shared<qsizetype>(0);
        QObject::connect(timer, &QTimer::timeout, socket, [socket, timer, offset, body = response.body] {
            socket->write(body.mid(*offset, 64));
            *offset += 64;
            if (*offset >= body.size()) {
                timer->stop();
                socket->disconnectFromHost();
            }
        });
        timer->start(5);
    }

    QThread m_thread;
    QObject *m_context = new QObject;
    quint16 m_port = 0;
    mutable QMutex m_mutex;
    QHash<QString, Response> m_responses;
    Handler m_handler;
    QStringList m_requests;
};
