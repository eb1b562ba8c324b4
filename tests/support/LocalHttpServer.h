#pragma once
// A small HTTP/1.1 server on 127.0.0.1 for tests, running on a thread of its own so that it
// answers also while the test blocks (waiting for a child process, say). Each path is scripted:
// a status and a body, or a reply that never comes, a connection closed without a word, a body
// sent in slow pieces. Unknown paths answer 404. Files of a folder can be served as they are.
#include "TestSupport.h"

#include <QByteArray>
#include <QDir>
#include <QHash>
#include <QMetaObject>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <memory>

class LocalHttpServer
{
public:
    enum class Behaviour { Answer, NeverAnswer, CloseWithoutReply, Trickle };
    struct Response
    {
        Response(int status = 200, QByteArray body = {}, Behaviour behaviour = Behaviour::Answer,
                 QByteArray location = {})
            : status(status), body(std::move(body)), behaviour(behaviour), location(std::move(location))
        {
        }
        int status;
        QByteArray body;
        Behaviour behaviour;
        QByteArray location; // for redirects
    };

    LocalHttpServer()
    {
        m_thread.start();
        m_context = new QObject;
        m_context->moveToThread(&m_thread);
        QMetaObject::invokeMethod(m_context, [this] { listen(); }, Qt::BlockingQueuedConnection);
    }

    ~LocalHttpServer()
    {
        QMetaObject::invokeMethod(m_context, [this] { delete m_context; }, Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }

    LocalHttpServer(const LocalHttpServer &) = delete;
    LocalHttpServer &operator=(const LocalHttpServer &) = delete;

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
    // Every file of the folder under the given path prefix (ending in "/").
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
        struct Request { QByteArray head; bool answered = false; };
        auto buffer = std::make_shared<Request>();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, buffer] {
            buffer->head.append(socket->readAll());
            if (buffer->answered || !buffer->head.contains("\r\n\r\n"))
                return;
            buffer->answered = true;
            const QList<QByteArray> requestLine = buffer->head.left(buffer->head.indexOf("\r\n")).split(' ');
            const QString path = requestLine.size() > 1 ? QString::fromLatin1(requestLine.at(1)) : QString();
            Response response{404, QByteArrayLiteral("Not Found")};
            {
                QMutexLocker locker(&m_mutex);
                m_requests << path;
                response = m_responses.value(path, response);
            }
            reply(socket, response);
        });
    }

    static void reply(QTcpSocket *socket, const Response &response)
    {
        switch (response.behaviour) {
        case Behaviour::NeverAnswer:
            return;
        case Behaviour::CloseWithoutReply:
            socket->disconnectFromHost();
            return;
        case Behaviour::Answer:
        case Behaviour::Trickle:
            break;
        }
        QByteArray head = "HTTP/1.1 " + QByteArray::number(response.status) + " Scripted\r\n";
        head += "Content-Length: " + QByteArray::number(response.body.size()) + "\r\n";
        if (!response.location.isEmpty())
            head += "Location: " + response.location + "\r\n";
        head += "Connection: close\r\n\r\n";
        socket->write(head);
        if (response.behaviour == Behaviour::Answer) {
            socket->write(response.body);
            socket->disconnectFromHost();
            return;
        }
        // Slow but steady: a piece every few milliseconds.
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
    QObject *m_context = nullptr;
    quint16 m_port = 0;
    mutable QMutex m_mutex;
    QHash<QString, Response> m_responses;
    QStringList m_requests;
};
