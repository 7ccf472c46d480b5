// SPDX-License-Identifier: MIT
#include "rawconnection.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTimer>

#include <gtest/gtest.h>

#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int patience = 20'000; // milliseconds; only a failing test waits that long
}

bool waitUntil(const std::function<bool()>& isSo)
{
    QEventLoop loop;
    QTimer waker; // checks the deadline when nothing else happens
    waker.start(50);
    const QDeadlineTimer deadline(patience);
    while (!isSo()) {
        if (deadline.hasExpired()) {
            return false;
        }
        loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

QJsonObject RawAnswer::json() const
{
    return QJsonDocument::fromJson(body).object();
}

QString RawAnswer::issue() const
{
    const QJsonObject outcome = json();
    const QJsonArray issues = outcome.value(u"issue"_s).toArray();
    if (outcome.value(u"resourceType"_s) != "OperationOutcome"_L1 || issues.size() != 1) {
        return {};
    }
    const QJsonObject issue = issues.first().toObject();
    if (issue.value(u"severity"_s) != "error"_L1) {
        return {};
    }
    return issue.value(u"details"_s).toString();
}

End endAfter(const QUrl& url, const QByteArray& bytes)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(quint16(url.port()));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::send(socket, bytes.constData(), std::size_t(bytes.size()), 0), bytes.size());

    End end = End::Waiting;
    waitUntil([socket, &end] {
        char byte = 0;
        const auto received = ::recv(socket, &byte, 1, MSG_DONTWAIT);
        if (received > 0) {
            end = End::Bytes;
        } else if (received == 0) {
            end = End::Orderly;
        } else if (errno == ECONNRESET) {
            end = End::Reset;
        }
        return end != End::Waiting;
    });
    ::close(socket);
    return end;
}

RawConnection::RawConnection(const QUrl& url, const QString& trustedCertificate)
{
    if (url.scheme() == "https"_L1) {
        QSslConfiguration configuration = m_socket.sslConfiguration();
        configuration.setCaCertificates(QSslCertificate::fromPath(trustedCertificate));
        m_socket.setSslConfiguration(configuration);
        m_socket.connectToHostEncrypted(url.host(), quint16(url.port()));
        EXPECT_TRUE(waitUntil(
            [this] { return m_socket.isEncrypted() || m_socket.state() == QAbstractSocket::UnconnectedState; }));
    } else {
        m_socket.connectToHost(url.host(), quint16(url.port()));
        EXPECT_TRUE(waitUntil([this] { return isOpen(); }));
    }
}

void RawConnection::send(const QByteArray& bytes)
{
    m_socket.write(bytes);
    m_socket.flush();
}

QByteArray RawConnection::requestBytes(const QByteArray& method, const QByteArray& target,
                                       const emulator::HttpHeaders& headers, const QByteArray& body)
{
    QByteArray bytes = method + ' ' + target + " HTTP/1.1\r\nHost: localhost\r\n";
    for (const auto& [name, value] : headers) {
        bytes += name + ": " + value + "\r\n";
    }
    if (!body.isEmpty()) {
        bytes += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    }
    return bytes + "\r\n" + body;
}

void RawConnection::request(const QByteArray& method, const QByteArray& target, const emulator::HttpHeaders& headers,
                            const QByteArray& body)
{
    send(requestBytes(method, target, headers, body));
}

std::optional<RawAnswer> RawConnection::answer(bool withBody)
{
    RawAnswer answer;
    qsizetype headEnd = -1;
    qsizetype length = 0;
    const auto isComplete = [&] {
        m_received += m_socket.readAll();
        if (headEnd < 0) {
            headEnd = m_received.indexOf("\r\n\r\n");
            if (headEnd < 0) {
                return false;
            }
            const QList<QByteArray> lines = m_received.left(headEnd).split('\n');
            answer.status = lines.first().split(' ').value(1).toInt();
            for (const QByteArray& line : lines.mid(1)) {
                const qsizetype colon = line.indexOf(':');
                answer.headers.append(std::pair(line.left(colon), line.mid(colon + 1).trimmed()));
            }
            length = withBody ? answer.header("Content-Length").toLongLong() : 0;
            headEnd += 4;
        }
        return m_received.size() >= headEnd + length;
    };
    waitUntil([&] { return isComplete() || !isOpen(); });
    if (!isComplete()) {
        return std::nullopt;
    }
    answer.body = m_received.mid(headEnd, length);
    m_received.remove(0, headEnd + length);
    return answer;
}

bool RawConnection::waitForEnd()
{
    return waitUntil([this] { return m_socket.state() == QAbstractSocket::UnconnectedState; });
}

QByteArray RawConnection::unread()
{
    m_received += m_socket.readAll();
    return m_received;
}
