// SPDX-License-Identifier: MIT
#include "registryprocess.h"

#include "patience.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{
/// The organization that registers dispenses here, as in the pharmacy's configuration.
const QString organization = u"100000017"_s;
} // namespace

RegistryProcess::~RegistryProcess()
{
    stop();
}

void RegistryProcess::start(const QStringList& options)
{
    m_url.clear();
    m_adminUrl.clear();
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QString::fromUtf8(EMULATOR_PROGRAM),
                    options + QStringList{u"--port"_s, u"0"_s, u"--admin-port"_s, u"0"_s, u"--seed"_s,
                                          QString::fromUtf8(DEMO_SEED)});
    ASSERT_TRUE(m_process.waitForStarted(patience)) << qPrintable(m_process.errorString());

    static const QRegularExpression line(u"^(registry|admin) (\\S+)$"_s, QRegularExpression::MultilineOption);
    QString printed;
    QDeadlineTimer deadline(patience);
    while (m_url.isEmpty() || m_adminUrl.isEmpty()) {
        ASSERT_FALSE(deadline.hasExpired()) << "The emulator printed only " << qPrintable(printed);
        ASSERT_EQ(m_process.state(), QProcess::Running) << qPrintable(printed);
        m_process.waitForReadyRead(int(deadline.remainingTime()));
        printed += QString::fromUtf8(m_process.readAll());
        for (auto it = line.globalMatch(printed); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            (match.captured(1) == "admin"_L1 ? m_adminUrl : m_url) = match.captured(2);
        }
    }
}

void RegistryProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning) {
        return;
    }
    m_process.terminate();
    if (!m_process.waitForFinished(patience)) {
        m_process.kill();
    }
}

QJsonArray RegistryProcess::journal()
{
    return askAdmin("GET", u"/journal"_s).object().value("requests"_L1).toArray();
}

QStringList RegistryProcess::requestedPaths()
{
    QStringList paths;
    for (const QJsonValue& request : journal()) {
        paths += request.toObject().value("path"_L1).toString().section(u'?', 0, 0);
    }
    return paths;
}

int RegistryProcess::requestsTo(const QString& endpoint)
{
    const QJsonArray requests = journal();
    return int(std::count_if(requests.begin(), requests.end(), [&endpoint](const QJsonValue& request) {
        return request["endpoint"_L1].toString() == endpoint;
    }));
}

void RegistryProcess::forgetRequests()
{
    askAdmin("DELETE", u"/journal"_s);
}

void RegistryProcess::orderFault(const QJsonObject& fault)
{
    askAdmin("POST", u"/faults"_s, QJsonDocument(fault).toJson());
}

void RegistryProcess::withdrawFaults()
{
    askAdmin("DELETE", u"/faults"_s);
}

QJsonArray RegistryProcess::waitingFaults()
{
    return askAdmin("GET", u"/faults"_s).object().value("faults"_L1).toArray();
}

void RegistryProcess::seed(const QJsonObject& seed)
{
    askAdmin("POST", u"/seed"_s, QJsonDocument(seed).toJson(QJsonDocument::Compact));
}

void RegistryProcess::changeRules(const QJsonObject& rules)
{
    askAdmin("POST", u"/rules"_s, QJsonDocument(rules).toJson(QJsonDocument::Compact));
}

void RegistryProcess::dispenseElsewhere(const QJsonObject& dispense)
{
    askAdmin("POST", u"/dispenses"_s, QJsonDocument(dispense).toJson(QJsonDocument::Compact));
}

QList<RegistryProcess::Dispense> RegistryProcess::dispenses()
{
    QList<Dispense> found;
    for (const QJsonValue& prescription : prescriptions()) {
        for (const QJsonValue& dispense : prescription["dispenses"_L1].toArray()) {
            if (dispense["pharmacy"_L1].toString() != organization) {
                continue;
            }
            found.append({.id = dispense["id"_L1].toString(),
                          .prescription = prescription["id"_L1].toString(),
                          .quantity = dispense["quantity"_L1].toDouble(),
                          .final = dispense["final"_L1].toBool(),
                          .cancelled = dispense["cancelled"_L1].toBool()});
        }
    }
    return found;
}

QList<RegistryProcess::Dispense> RegistryProcess::dispensesOf(const QString& prescription)
{
    const QList<Dispense> all = dispenses();
    QList<Dispense> found;
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(found),
                 [&prescription](const Dispense& dispense) { return dispense.prescription == prescription; });
    return found;
}

QString RegistryProcess::statusOf(const QString& prescription)
{
    for (const QJsonValue& known : prescriptions()) {
        if (known["id"_L1].toString() == prescription) {
            return known["status"_L1].toString();
        }
    }
    return {};
}

QJsonArray RegistryProcess::prescriptions()
{
    QJsonArray all;
    const QJsonDocument state = askAdmin("GET", u"/state"_s);
    for (const QJsonValue& patient : state["patients"_L1].toArray()) {
        for (const QJsonValue& prescription : patient["prescriptions"_L1].toArray()) {
            all.append(prescription);
        }
    }
    return all;
}

QJsonDocument RegistryProcess::askAdmin(const QByteArray& verb, const QString& path, const QByteArray& body)
{
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl(m_adminUrl + path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    request.setTransferTimeout(patience);
    const std::unique_ptr<QNetworkReply> reply(network.sendCustomRequest(request, verb, body));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished()) {
        loop.exec();
    }
    EXPECT_EQ(reply->error(), QNetworkReply::NoError) << qPrintable(reply->errorString());
    return QJsonDocument::fromJson(reply->readAll());
}
