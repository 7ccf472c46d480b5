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

namespace
{
/// Who registers dispenses here, as the configuration of the pharmacy has it.
const QString organization = QStringLiteral("100000017");
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
    m_process.start(QStringLiteral(EMULATOR_PROGRAM),
                    options + QStringList{QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--admin-port"),
                                          QStringLiteral("0"), QStringLiteral("--seed"), QStringLiteral(DEMO_SEED)});
    ASSERT_TRUE(m_process.waitForStarted(patience)) << qPrintable(m_process.errorString());

    static const QRegularExpression line(QStringLiteral("^(registry|admin) (\\S+)$"),
                                         QRegularExpression::MultilineOption);
    QString printed;
    QDeadlineTimer deadline(patience);
    while (m_url.isEmpty() || m_adminUrl.isEmpty()) {
        ASSERT_FALSE(deadline.hasExpired()) << "The emulator printed only " << qPrintable(printed);
        ASSERT_EQ(m_process.state(), QProcess::Running) << qPrintable(printed);
        m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        printed += QString::fromUtf8(m_process.readAll());
        for (auto it = line.globalMatch(printed); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            (match.captured(1) == QLatin1String("admin") ? m_adminUrl : m_url) = match.captured(2);
        }
    }
}

void RegistryProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(patience))
        m_process.kill();
}

QJsonArray RegistryProcess::journal()
{
    return askAdmin("GET", QStringLiteral("/journal")).object().value(QLatin1String("requests")).toArray();
}

QStringList RegistryProcess::requestedPaths()
{
    QStringList paths;
    for (const QJsonValue& request : journal())
        paths += request.toObject().value(QLatin1String("path")).toString().section(QLatin1Char('?'), 0, 0);
    return paths;
}

int RegistryProcess::requestsTo(const QString& endpoint)
{
    const QJsonArray requests = journal();
    return static_cast<int>(std::count_if(requests.begin(), requests.end(), [&endpoint](const QJsonValue& request) {
        return request[QLatin1String("endpoint")].toString() == endpoint;
    }));
}

void RegistryProcess::forgetRequests()
{
    askAdmin("DELETE", QStringLiteral("/journal"));
}

void RegistryProcess::orderFault(const QJsonObject& fault)
{
    askAdmin("POST", QStringLiteral("/faults"), QJsonDocument(fault).toJson());
}

void RegistryProcess::takeBackFaults()
{
    askAdmin("DELETE", QStringLiteral("/faults"));
}

QList<RegistryProcess::Dispense> RegistryProcess::dispenses()
{
    QList<Dispense> found;
    for (const QJsonValue& prescription : prescriptions()) {
        for (const QJsonValue& dispense : prescription[QLatin1String("dispenses")].toArray()) {
            if (dispense[QLatin1String("pharmacy")].toString() != organization)
                continue;
            found.append({.id = dispense[QLatin1String("id")].toString(),
                          .prescription = prescription[QLatin1String("id")].toString(),
                          .quantity = dispense[QLatin1String("quantity")].toDouble(),
                          .final = dispense[QLatin1String("final")].toBool(),
                          .cancelled = dispense[QLatin1String("cancelled")].toBool()});
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
    for (const QJsonValue& known : prescriptions())
        if (known[QLatin1String("id")].toString() == prescription)
            return known[QLatin1String("status")].toString();
    return {};
}

QJsonArray RegistryProcess::prescriptions()
{
    QJsonArray all;
    const QJsonDocument state = askAdmin("GET", QStringLiteral("/state"));
    for (const QJsonValue& patient : state[QLatin1String("patients")].toArray())
        for (const QJsonValue& prescription : patient[QLatin1String("prescriptions")].toArray())
            all.append(prescription);
    return all;
}

QJsonDocument RegistryProcess::askAdmin(const QByteArray& verb, const QString& path, const QByteArray& body)
{
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl(m_adminUrl + path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    request.setTransferTimeout(patience);
    const std::unique_ptr<QNetworkReply> reply(network.sendCustomRequest(request, verb, body));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    EXPECT_EQ(reply->error(), QNetworkReply::NoError) << qPrintable(reply->errorString());
    return QJsonDocument::fromJson(reply->readAll());
}
