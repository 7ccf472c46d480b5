// SPDX-License-Identifier: MIT
#include "connection.h"

#include <QSslSocket>

#include <sys/socket.h>

namespace emulator
{
namespace
{
constexpr int statusTimedOut = 408;
constexpr std::chrono::seconds unreadRest{2}; // time for a refused client to read its answer and to stop sending
} // namespace

Connection::Connection(QTcpSocket* socket, quint64 number, const RequestHandler& handler,
                       std::chrono::milliseconds readTimeout, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_number(number)
    , m_handler(handler)
{
    m_socket->setParent(this);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_readLimit.setSingleShot(true);
    m_readLimit.setInterval(readTimeout);
    connect(&m_readLimit, &QTimer::timeout, this, [this] { refuse(statusTimedOut); });
    connect(m_socket, &QTcpSocket::readyRead, this, &Connection::readRequests);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &Connection::continueWhenSent);
    if (auto* secure = qobject_cast<QSslSocket*>(m_socket)) {
        connect(secure, &QSslSocket::encryptedBytesWritten, this, &Connection::continueWhenSent);
    }
    connect(m_socket, &QTcpSocket::disconnected, this, &Connection::clientLeft);
    QMetaObject::invokeMethod(this, &Connection::readRequests,
                              Qt::QueuedConnection); // bytes that came with the connection
}

Connection::~Connection()
{
    m_socket->disconnect(this);
    finish(false);
}

void Connection::readRequests()
{
    if (m_unreadable) {
        m_socket->readAll();
        return;
    }
    while (!m_answering && m_socket->state() == QAbstractSocket::ConnectedState) {
        m_received += m_socket->readAll();
        const RequestParser::State state = m_parser.read(m_received);
        if (m_parser.takeContinueRequest() && state == RequestParser::State::Incomplete) {
            m_socket->write("HTTP/1.1 100 Continue\r\n\r\n");
        }
        if (state == RequestParser::State::Incomplete) {
            if (m_parser.hasBegun() && !m_readLimit.isActive()) {
                m_readLimit.start();
            }
            return;
        }
        m_readLimit.stop();
        if (state == RequestParser::State::Unreadable) {
            refuse(m_parser.status());
            return;
        }
        HttpRequest request = m_parser.take();
        request.connection = m_number;
        m_withBody = request.method != "HEAD";
        start(m_handler.answer(request), request.keepAlive);
    }
}

void Connection::refuse(int status)
{
    m_unreadable = true;
    m_received.clear();
    HttpRequest nothing;
    nothing.connection = m_number;
    start(m_handler.answerUnreadable(nothing, status), false);
}

void Connection::start(Delivery delivery, bool keepAlive)
{
    m_delivery = std::move(delivery);
    m_keepAlive = keepAlive;
    m_answering = true;
    m_timer.disconnect(this);
    if (m_delivery.delay.count() <= 0) {
        deliver();
        return;
    }
    connect(&m_timer, &QTimer::timeout, this, &Connection::deliver);
    m_timer.start(m_delivery.delay);
}

void Connection::deliver()
{
    switch (m_delivery.manner) {
    case Delivery::Manner::Whole:
        sendWhole();
        break;
    case Delivery::Manner::Dripping:
        m_dripped = 0;
        m_timer.disconnect(this);
        connect(&m_timer, &QTimer::timeout, this, &Connection::drip);
        m_socket->write(m_delivery.answer.head(m_keepAlive));
        drip();
        break;
    case Delivery::Manner::CutOff:
        sendHalf();
        break;
    case Delivery::Manner::Close:
        m_socket->disconnectFromHost();
        break;
    case Delivery::Manner::Reset:
        reset();
        break;
    case Delivery::Manner::Never:
        break;
    }
}

void Connection::sendWhole()
{
    QByteArray bytes = m_delivery.answer.head(m_keepAlive);
    if (m_withBody) {
        bytes += m_delivery.answer.body;
    }
    m_sending = true;
    m_socket->write(bytes);
    m_socket->flush(); // a short answer counts as sent before the client can ask about it
    continueWhenSent();
}

void Connection::sendHalf()
{
    const QByteArray& body = m_delivery.answer.body;
    m_socket->write(m_delivery.answer.head(m_keepAlive) + body.left(body.size() / 2));
    m_socket->disconnectFromHost();
}

void Connection::drip()
{
    const QByteArray& body = m_delivery.answer.body;
    if (m_dripped < body.size()) {
        m_socket->write(body.constData() + m_dripped++, 1);
    }
    m_socket->flush();
    if (m_dripped < body.size()) {
        m_timer.start(m_delivery.pause);
        return;
    }
    m_sending = true;
    continueWhenSent();
}

void Connection::reset()
{
    const linger immediately{1, 0};
    ::setsockopt(int(m_socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &immediately, sizeof immediately);
    m_socket->abort();
}

void Connection::finish(bool whole)
{
    m_timer.stop();
    if (auto finished = std::exchange(m_delivery.finished, nullptr)) {
        finished(whole);
    }
}

bool Connection::isEverythingSent() const
{
    if (m_socket->bytesToWrite() > 0) {
        return false;
    }
    const auto* secure = qobject_cast<const QSslSocket*>(m_socket);
    return !secure || secure->encryptedBytesToWrite() == 0;
}

void Connection::continueWhenSent()
{
    if (!m_sending || !isEverythingSent()) {
        return;
    }
    m_sending = false;
    finish(true);
    if (m_unreadable) {
        closeGracefully();
    } else if (!m_keepAlive) {
        m_socket->disconnectFromHost();
    } else {
        m_answering = false;
        QMetaObject::invokeMethod(this, &Connection::readRequests, Qt::QueuedConnection); // a pipelined request
    }
}

/// The system resets a connection that is closed with unread bytes, and the client would lose the answer that says what
/// was wrong. So only the sending side is closed, and further bytes are discarded for a moment.
void Connection::closeGracefully()
{
    ::shutdown(int(m_socket->socketDescriptor()), SHUT_WR);
    m_timer.disconnect(this);
    connect(&m_timer, &QTimer::timeout, m_socket, &QTcpSocket::abort);
    m_timer.start(unreadRest);
}

void Connection::clientLeft()
{
    finish(false);
    deleteLater();
}
} // namespace emulator
