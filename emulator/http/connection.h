// SPDX-License-Identifier: MIT
#pragma once

#include "delivery.h"
#include "httprequest.h"
#include "requestparser.h"

#include <QObject>
#include <QTcpSocket>
#include <QTimer>

namespace emulator
{
/// What answers a connection's requests.
struct RequestHandler {
    std::function<Delivery(const HttpRequest&)> answer;
    /// Answers what could not be read as a request; `request` holds only the connection's number.
    std::function<Delivery(const HttpRequest& request, int status)> answerUnreadable;
};

/// One client's connection: reads its requests in turn, and hands over each answer before it reads the next request,
/// so that pipelined requests are answered in order. Deletes itself when the client has left.
class Connection : public QObject
{
    Q_OBJECT

public:
    /// Takes over the connected socket. `handler` must outlive the connection.
    Connection(QTcpSocket* socket, quint64 number, const RequestHandler& handler, QObject* parent);
    ~Connection() override;

private:
    void readOn();
    void start(Delivery delivery, bool keepAlive);
    void deliver();
    void sendWhole();
    void sendHalf();
    void drip();
    void reset();
    void finish(bool whole);
    void noticeSent();
    void leaveGently();
    void clientLeft();
    bool isEverythingSent() const;

    QTcpSocket* m_socket;
    quint64 m_number;
    const RequestHandler& m_handler;
    RequestParser m_parser;
    QByteArray m_received;
    Delivery m_delivery;
    QTimer m_timer;
    qsizetype m_dripped = 0;
    bool m_withBody = true; ///< false for HEAD, whose answers are heads only
    bool m_keepAlive = true;
    bool m_answering = false;  ///< a request is being answered
    bool m_sending = false;    ///< its last byte is in the socket
    bool m_unreadable = false; ///< nothing that comes is looked at any more
};
} // namespace emulator
