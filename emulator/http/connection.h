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
/// Answers a connection's requests.
struct RequestHandler {
    std::function<Delivery(const HttpRequest&)> answer;
    /// Answers bytes that are no request.
    /// @param request has only the number of the connection
    /// @param status  see RequestParser::status(); 408 when the request was not whole in time
    std::function<Delivery(const HttpRequest& request, int status)> answerUnreadable;
};

/// One client's connection. It delivers each answer before it reads the next request, so that pipelined requests are
/// answered in order. It deletes itself when the client has left.
class Connection : public QObject
{
    Q_OBJECT

public:
    /// @param socket  connected; the connection becomes its owner
    /// @param number  for HttpRequest::connection
    /// @param handler outlives the connection
    /// @param readTimeout from the first byte of a request to its last; then it is answered with 408, and the
    /// connection
    ///        is closed. A connection without a request may wait for ever
    Connection(QTcpSocket* socket, quint64 number, const RequestHandler& handler, std::chrono::milliseconds readTimeout,
               QObject* parent);
    ~Connection() override;

private:
    void readRequests();
    void refuse(int status);
    void start(Delivery delivery, bool keepAlive);
    void deliver();
    void sendWhole();
    void sendHalf();
    void drip();
    void reset();
    void finish(bool whole);
    void continueWhenSent();
    void closeGracefully();
    void clientLeft();
    bool isEverythingSent() const;

    QTcpSocket* m_socket;
    quint64 m_number;
    const RequestHandler& m_handler;
    RequestParser m_parser;
    QByteArray m_received;
    Delivery m_delivery;
    QTimer m_timer;
    QTimer m_readLimit; ///< runs while a request has begun and is not whole
    qsizetype m_dripped = 0;
    bool m_withBody = true; ///< false for the answer to HEAD
    bool m_keepAlive = true;
    bool m_answering = false;  ///< a request is being answered
    bool m_sending = false;    ///< its last byte is in the socket
    bool m_unreadable = false; ///< all further bytes are discarded
};
} // namespace emulator
