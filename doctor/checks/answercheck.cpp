// SPDX-License-Identifier: MIT
#include "serverchecks.h"

#include "server.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

constexpr qsizetype longestHead = 65536;
constexpr char tlsAlert = '\x15'; // the type of an alert, RFC 8446, 5.1

constexpr int firstRedirect = 300;
constexpr int lastRedirect = 399;
constexpr int proxyLogin = 407;
constexpr int badGateway = 502;
constexpr int gatewayTimeout = 504;

/// A GET without credentials. A proxy is given the whole URL (RFC 9112, 3.2.2).
QByteArray requestTo(const Server& server)
{
    const QUrl url = server.operation();
    const bool isToProxy = server.hasProxy() && !server.usesTunnel();
    const QByteArray target = isToProxy ? url.toEncoded() : url.path(QUrl::FullyEncoded).toLatin1();
    return "GET " + target + " HTTP/1.1\r\nHost: " + server.name().toLatin1() +
           "\r\nAccept: application/json\r\nUser-Agent: prescription-doctor\r\nConnection: close\r\n\r\n";
}

/// What came back, up to the end of the head, of the connection or of the time.
struct Received {
    QByteArray bytes;
    bool isInTime = true;

    bool hasHead() const { return bytes.contains("\r\n\r\n"); }
};

Received receive(QSslSocket& socket, int milliseconds)
{
    Received received;
    QElapsedTimer timer;
    timer.start();
    while (!received.hasHead() && received.bytes.size() < longestHead) {
        const int left = milliseconds - int(timer.elapsed());
        if (socket.bytesAvailable() == 0 && (left <= 0 || !socket.waitForReadyRead(left))) {
            received.isInTime = left > 0 && socket.error() != QAbstractSocket::SocketTimeoutError;
            break;
        }
        received.bytes += socket.readAll();
    }
    return received;
}

/// Without a status, when the bytes are no HTTP.
AnswerHead headOf(const QByteArray& bytes)
{
    QList<QByteArray> lines =
        bytes.first(qMax(qsizetype(0), bytes.indexOf("\r\n\r\n"))).replace("\r\n", "\n").split('\n');
    const QByteArray statusLine = lines.takeFirst();
    AnswerHead head;
    if (statusLine.startsWith("HTTP/")) {
        head.status = statusLine.split(' ').value(1).toInt();
    }
    for (const QByteArray& line : std::as_const(lines)) {
        const qsizetype colon = qMax(qsizetype(0), line.indexOf(':'));
        const QByteArray name = line.first(colon).toLower();
        const QByteArray value = line.sliced(colon).mid(1).trimmed();
        if (name == "date") {
            head.date = value;
        } else if (name == "content-type") {
            head.contentType = value.toLower();
        } else if (name == "location") {
            head.location = value;
        }
    }
    return head;
}

/// True when the port where a plain request failed sets up TLS. The certificate does not matter: nothing is sent.
bool speaksTls(const Server& server, const TimeLimit& limit)
{
    if (server.hasProxy()) {
        return false;
    }
    const std::unique_ptr<QSslSocket> socket = server.newSocket();
    socket->setPeerVerifyMode(QSslSocket::VerifyNone);
    socket->connectToHostEncrypted(server.addresses.constFirst().toString(), quint16(server.port()));
    return socket->waitForEncrypted(limit.step());
}

Finding noAnswer(const Server& server, const Received& received, const TimeLimit& limit)
{
    const QStringList where = {server.host(), QString::number(server.port())};
    const bool isCut = received.bytes.isEmpty() || received.bytes.startsWith(tlsAlert);
    if (!server.isSecure() && isCut && speaksTls(server, limit)) {
        return finding(FindingCode::AnswerExpectsTls, where);
    }
    if (!received.isInTime) {
        return finding(FindingCode::AnswerSilent, where);
    }
    return finding(received.bytes.isEmpty() ? FindingCode::AnswerClosed : FindingCode::AnswerNotHttp, where);
}

bool isRedirect(const AnswerHead& head)
{
    return firstRedirect <= head.status && head.status <= lastRedirect && !head.location.isEmpty();
}

/// A registry answers in JSON. A page with an error status is what servers send of themselves.
bool isPage(const AnswerHead& head)
{
    return head.status < firstRedirect && head.contentType.startsWith("text/html");
}

Finding judgeAnswer(const Server& server)
{
    const QStringList where = {server.host(), QString::number(server.port())};
    const QString status = QString::number(server.answer.status);
    const QUrl target = server.operation().resolved(QUrl::fromEncoded(server.answer.location));
    if (isRedirect(server.answer) && target.host() != server.host()) {
        return finding(FindingCode::AnswerElsewhere, where + QStringList{target.host()});
    }
    if (isRedirect(server.answer) && target.scheme() == "https"_L1 && !server.isSecure()) {
        return finding(FindingCode::AnswerLeadsToHttps, where);
    }
    if (isPage(server.answer)) {
        return finding(FindingCode::AnswerPage, where);
    }
    if (server.answer.status == proxyLogin) {
        return finding(FindingCode::AnswerProxyLogin, where);
    }
    if (badGateway <= server.answer.status && server.answer.status <= gatewayTimeout) {
        return finding(FindingCode::AnswerUnavailable, where + QStringList{status});
    }
    return finding(FindingCode::AnswerGood, where + QStringList{status});
}

} // namespace

Finding checkAnswer(Server& server, const TimeLimit& limit)
{
    server.socket->write(requestTo(server));
    const Received received = receive(*server.socket, limit.step());
    server.socket->abort();
    if (received.hasHead()) {
        server.answer = headOf(received.bytes);
    }
    if (server.answer.status == 0) {
        return noAnswer(server, received, limit);
    }
    Finding found = judgeAnswer(server);
    server.isReached = found.state == State::Good;
    return found;
}

} // namespace doctor
