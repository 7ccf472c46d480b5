// SPDX-License-Identifier: MIT
#include "pharmacy.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRegularExpression>

#include <memory>

namespace
{
constexpr int patience = 60'000; // milliseconds; long, since it only bounds a failure

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(content), content.size());
}
} // namespace

void Pharmacy::SetUp()
{
    ASSERT_TRUE(m_folder.isValid());
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("data")));
    startRegistry();

    configure(QStringLiteral("plugins:pharmacy"), QStringLiteral("true"));
    configure(QStringLiteral("ElectronicPrescription:requestsUrl"), m_registryUrl);
    configure(QStringLiteral("ElectronicPrescription:authorizationUrl"), m_registryUrl);
    configure(QStringLiteral("ElectronicPrescription:clientId"), QStringLiteral("pharmacy-17"));
    configure(QStringLiteral("ElectronicPrescription:clientSecret"), QStringLiteral("secret&17"));
    configure(QStringLiteral("ElectronicPrescription:scope"), QStringLiteral("dispense"));
    configure(QStringLiteral("ElectronicPrescription:organizationIdentifier"), QStringLiteral("100000017"));
    configure(QStringLiteral("ElectronicPrescription:timeout"), QStringLiteral("20"));
    configure(QStringLiteral("Register:demoData"), QStringLiteral("true"));
    configure(QStringLiteral("FunctionKeys:keys"),
              QStringLiteral("newReceiptKey,goodsKey,quantityKey,prescriptionKey"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:text"), QStringLiteral("Электронный рецепт"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:key"), QStringLiteral("F5"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:action"), QStringLiteral("94"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:arguments"), QStringLiteral("status=active"));
}

void Pharmacy::TearDown()
{
    kill();
    stopRegistry();
}

void Pharmacy::configure(const QString& key, const QString& value)
{
    m_configuration.insert(key, value);
}

Pharmacy::Outcome Pharmacy::play(const QString& scenario, const QStringList& options)
{
    launch(QStringLiteral(SCENARIO_FOLDER "/") + scenario, options);
    return waitForEnd();
}

Pharmacy::Outcome Pharmacy::playSteps(const QByteArray& steps, const QStringList& options)
{
    const QString file = m_folder.filePath(QStringLiteral("steps.json"));
    write(file, steps);
    launch(file, options);
    return waitForEnd();
}

void Pharmacy::start(const QString& scenario)
{
    launch(QStringLiteral(SCENARIO_FOLDER "/") + scenario, {});
}

void Pharmacy::launch(const QString& scenario, const QStringList& options)
{
    QByteArray ini;
    QMap<QString, QByteArray> sections;
    for (auto it = m_configuration.cbegin(); it != m_configuration.cend(); ++it) {
        const QString section = it.key().section(QLatin1Char(':'), 0, 0);
        const QString key = it.key().section(QLatin1Char(':'), 1);
        sections[section] += key.toUtf8() + "=\"" + it.value().toUtf8() + "\"\n";
    }
    for (auto it = sections.cbegin(); it != sections.cend(); ++it)
        ini += "[" + it.key().toUtf8() + "]\n" + it.value() + "\n";
    const QString configuration = m_folder.filePath(QStringLiteral("register.ini"));
    write(configuration, ini);

    QStringList arguments{QStringLiteral("--config"), configuration, QStringLiteral("--data"),        dataFolder(),
                          QStringLiteral("--play"),   scenario,      QStringLiteral("--screenshots"), m_folder.path()};
    if (!options.contains(QStringLiteral("--plugins")))
        arguments += {QStringLiteral("--plugins"), QStringLiteral(PLUGIN_FOLDER)};

    m_output.clear();
    m_register.setProcessChannelMode(QProcess::MergedChannels);
    m_register.start(QStringLiteral(REGISTER_PROGRAM), arguments + options);
    ASSERT_TRUE(m_register.waitForStarted(patience)) << qPrintable(m_register.errorString());
}

Pharmacy::Outcome Pharmacy::waitForEnd()
{
    if (!m_register.waitForFinished(patience)) {
        kill();
        ADD_FAILURE() << "The register did not end; it printed\n" << qPrintable(m_output);
        return {-1, m_output};
    }
    m_output += QString::fromUtf8(m_register.readAll());
    return {m_register.exitStatus() == QProcess::NormalExit ? m_register.exitCode() : -1, m_output};
}

bool Pharmacy::waitForOutput(const QString& text)
{
    QDeadlineTimer deadline(patience);
    while (!m_output.contains(text)) {
        if (deadline.hasExpired() || m_register.state() != QProcess::Running)
            return false;
        m_register.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        m_output += QString::fromUtf8(m_register.readAll());
    }
    return true;
}

void Pharmacy::kill()
{
    if (m_register.state() == QProcess::NotRunning)
        return;
    m_register.kill();
    m_register.waitForFinished(patience);
    m_output += QString::fromUtf8(m_register.readAll());
}

void Pharmacy::startRegistry()
{
    m_registry.setProcessChannelMode(QProcess::MergedChannels);
    m_registry.start(QStringLiteral(EMULATOR_PROGRAM),
                     {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--admin-port"),
                      QStringLiteral("0"), QStringLiteral("--seed"), QStringLiteral(DEMO_SEED)});
    ASSERT_TRUE(m_registry.waitForStarted(patience)) << qPrintable(m_registry.errorString());

    static const QRegularExpression line(QStringLiteral("^(registry|admin) (\\S+)$"),
                                         QRegularExpression::MultilineOption);
    QString printed;
    QDeadlineTimer deadline(patience);
    while (m_registryUrl.isEmpty() || m_adminUrl.isEmpty()) {
        ASSERT_FALSE(deadline.hasExpired()) << "The emulator printed only " << qPrintable(printed);
        ASSERT_EQ(m_registry.state(), QProcess::Running) << qPrintable(printed);
        m_registry.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        printed += QString::fromUtf8(m_registry.readAll());
        for (auto it = line.globalMatch(printed); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            (match.captured(1) == QLatin1String("admin") ? m_adminUrl : m_registryUrl) = match.captured(2);
        }
    }
}

void Pharmacy::stopRegistry()
{
    if (m_registry.state() == QProcess::NotRunning)
        return;
    m_registry.terminate();
    if (!m_registry.waitForFinished(patience))
        m_registry.kill();
}

QJsonDocument Pharmacy::askAdmin(const QByteArray& verb, const QString& path, const QByteArray& body)
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

QJsonArray Pharmacy::journal()
{
    const QJsonDocument answer = askAdmin("GET", QStringLiteral("/journal"));
    return answer.isArray() ? answer.array() : answer.object().value(QLatin1String("requests")).toArray();
}

QStringList Pharmacy::requestedPaths()
{
    QStringList paths;
    for (const QJsonValue& request : journal())
        paths += request.toObject().value(QLatin1String("path")).toString().section(QLatin1Char('?'), 0, 0);
    return paths;
}

void Pharmacy::orderFault(const QJsonObject& fault)
{
    askAdmin("POST", QStringLiteral("/faults"), QJsonDocument(fault).toJson());
}

QString Pharmacy::dataFolder() const
{
    return m_folder.filePath(QStringLiteral("data"));
}

QJsonObject Pharmacy::savedReceipt() const
{
    QFile file(dataFolder() + QStringLiteral("/receipt.json"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

QJsonArray Pharmacy::savedPositions() const
{
    return savedReceipt().value(QLatin1String("positions")).toArray();
}

QJsonObject Pharmacy::optionsOf(const QJsonObject& position)
{
    return QJsonDocument::fromJson(position.value(QLatin1String("extendedOptions")).toString().toUtf8()).object();
}
