// SPDX-License-Identifier: MIT
#include "pharmacy.h"

#include "patience.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <csignal>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace
{

constexpr int lookInterval = 20; // milliseconds

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(content), content.size());
}

/// Empty when there is no such file.
QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Runs in the register's process before its program: a disk that is full is an error there, not its end, and a folder
/// that may not be written to holds for root as well.
void meetTheDiskAsAnybody()
{
    std::signal(SIGXFSZ, SIG_IGN);
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
}

QString dispenseLine(const QString& prescription, double doses, const QString& id)
{
    return QStringLiteral("%1: %2 doses as %3").arg(prescription).arg(doses).arg(id);
}

} // namespace

void Pharmacy::SetUp()
{
    ASSERT_TRUE(m_folder.isValid());
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("data")));
    registry.start();
    m_register.setProcessChannelMode(QProcess::MergedChannels);
    m_register.setChildProcessModifier(meetTheDiskAsAnybody);

    configure(QStringLiteral("plugins:pharmacy"), QStringLiteral("true"));
    configureRegistry();
    configure(QStringLiteral("ElectronicPrescription:clientId"), QStringLiteral("pharmacy-17"));
    configure(QStringLiteral("ElectronicPrescription:clientSecret"), QStringLiteral("secret&17"));
    configure(QStringLiteral("ElectronicPrescription:scope"), QStringLiteral("dispense"));
    configure(QStringLiteral("ElectronicPrescription:organizationIdentifier"), QStringLiteral("100000017"));
    configure(QStringLiteral("ElectronicPrescription:organizationName"), QStringLiteral("Аптека № 17"));
    configure(QStringLiteral("ElectronicPrescription:timeout"), QStringLiteral("20"));
    configure(QStringLiteral("Register:demoData"), QStringLiteral("true"));
    configure(QStringLiteral("FunctionKeys:keys"),
              QStringLiteral("newReceiptKey,goodsKey,quantityKey,prescriptionKey,subtotalKey,removeKey,"
                             "cancelReceiptKey,menuKey,paymentKey"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:text"), QStringLiteral("Электронный рецепт"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:key"), QStringLiteral("F5"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:action"), QStringLiteral("94"));
    configure(QStringLiteral("FunctionKey.prescriptionKey:arguments"), QStringLiteral("status=active"));
}

void Pharmacy::TearDown()
{
    kill();
    registry.stop();
}

void Pharmacy::configure(const QString& key, const QString& value)
{
    m_configuration.insert(key, value);
}

void Pharmacy::configureRegistry()
{
    configure(QStringLiteral("ElectronicPrescription:requestsUrl"), registry.url());
    configure(QStringLiteral("ElectronicPrescription:authorizationUrl"), registry.url());
}

void Pharmacy::restartRegistry(const QStringList& options)
{
    registry.stop();
    registry.start(options);
    configureRegistry();
}

void Pharmacy::loseWidget(const QString& layout, const QString& widget)
{
    const QByteArray original = contentOf(QStringLiteral(PLUGIN_FOLDER "/electronicprescription/") + layout);
    QByteArray changed = original;
    changed.replace("name=\"" + widget.toUtf8() + '"', "name=\"renamed\"");
    ASSERT_NE(changed, original) << qPrintable(layout) << " has no " << qPrintable(widget);
    const QDir folder(m_folder.filePath(QStringLiteral("layouts")));
    ASSERT_TRUE(folder.mkpath(QStringLiteral(".")));
    write(folder.filePath(layout), changed);
    configure(QStringLiteral("GUI:layouts"), folder.path());
}

void Pharmacy::leaveOpen(const QString& receipt)
{
    write(dataFolder() + QStringLiteral("/receipt.json"), contentOf(QStringLiteral(SCENARIO_FOLDER "/") + receipt));
}

Pharmacy::Outcome Pharmacy::play(const QString& scenario, const QStringList& options)
{
    launch(QStringLiteral(SCENARIO_FOLDER "/") + scenario, options);
    return waitForEnd();
}

Pharmacy::Outcome Pharmacy::playSteps(const QByteArrayList& steps, const QStringList& options)
{
    launchSteps(steps, options);
    return waitForEnd();
}

void Pharmacy::start(const QString& scenario)
{
    launch(QStringLiteral(SCENARIO_FOLDER "/") + scenario, {});
}

void Pharmacy::startSteps(const QByteArrayList& steps, const QStringList& options)
{
    launchSteps(steps, options);
}

void Pharmacy::launchSteps(const QByteArrayList& steps, const QStringList& options)
{
    const QString file = m_folder.filePath(QStringLiteral("steps.json"));
    write(file, R"({"steps": [)" + steps.join(", ") + "]}");
    launch(file, options);
}

void Pharmacy::launch(const QString& scenario, const QStringList& options)
{
    const QString configuration = m_folder.filePath(QStringLiteral("register.ini"));
    writeConfiguration(configuration);
    QStringList arguments{QStringLiteral("--config"), configuration, QStringLiteral("--data"),        dataFolder(),
                          QStringLiteral("--play"),   scenario,      QStringLiteral("--screenshots"), m_folder.path()};
    if (!options.contains(QStringLiteral("--plugins")))
        arguments += {QStringLiteral("--plugins"), QStringLiteral(PLUGIN_FOLDER)};

    m_output.clear();
    m_register.start(QStringLiteral(REGISTER_PROGRAM), arguments + options);
    ASSERT_TRUE(m_register.waitForStarted(patience)) << qPrintable(m_register.errorString());
}

void Pharmacy::writeConfiguration(const QString& file) const
{
    QMap<QString, QByteArray> sections;
    for (auto it = m_configuration.cbegin(); it != m_configuration.cend(); ++it) {
        const QString section = it.key().section(QLatin1Char(':'), 0, 0);
        const QString key = it.key().section(QLatin1Char(':'), 1);
        sections[section] += key.toUtf8() + "=\"" + it.value().toUtf8() + "\"\n";
    }
    QByteArray ini;
    for (auto it = sections.cbegin(); it != sections.cend(); ++it)
        ini += "[" + it.key().toUtf8() + "]\n" + it.value() + "\n";
    write(file, ini);
}

Pharmacy::Outcome Pharmacy::waitForEnd()
{
    if (m_register.state() != QProcess::NotRunning && !m_register.waitForFinished(patience)) {
        kill();
        ADD_FAILURE() << "The register did not end; it printed\n" << qPrintable(m_output);
        return {-1, m_output};
    }
    m_output += QString::fromUtf8(m_register.readAll());
    return {m_register.exitStatus() == QProcess::NormalExit ? m_register.exitCode() : -1, m_output};
}

bool Pharmacy::wasKilled() const
{
    return m_register.state() == QProcess::NotRunning && m_register.exitStatus() == QProcess::CrashExit &&
           m_register.exitCode() == SIGKILL;
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

bool Pharmacy::waitForRequests(const QString& endpoint, int requests)
{
    QDeadlineTimer deadline(patience);
    while (registry.requestsTo(endpoint) < requests) {
        if (deadline.hasExpired() || m_register.state() != QProcess::Running)
            return false;
        m_register.waitForFinished(lookInterval); // the pause between two looks ends with the register
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

void Pharmacy::fillDisk(qulonglong bytes)
{
    const rlimit limit{bytes == 0 ? RLIM_INFINITY : bytes, RLIM_INFINITY};
    ASSERT_EQ(::prlimit(static_cast<pid_t>(m_register.processId()), RLIMIT_FSIZE, &limit, nullptr), 0);
}

QString Pharmacy::dataFolder() const
{
    return m_folder.filePath(QStringLiteral("data"));
}

QJsonObject Pharmacy::document(const QString& file) const
{
    return QJsonDocument::fromJson(contentOf(dataFolder() + QLatin1Char('/') + file)).object();
}

QJsonObject Pharmacy::savedReceipt() const
{
    return document(QStringLiteral("receipt.json"));
}

QJsonArray Pharmacy::savedPositions() const
{
    return savedReceipt().value(QLatin1String("positions")).toArray();
}

QJsonObject Pharmacy::putAside(int number) const
{
    return document(QStringLiteral("putaside/%1.json").arg(number, 8, 10, QLatin1Char('0')));
}

QJsonObject Pharmacy::finished(int number) const
{
    return document(QStringLiteral("finished/%1.json").arg(number, 8, 10, QLatin1Char('0')));
}

QStringList Pharmacy::files(const QString& folder) const
{
    return QDir(dataFolder() + QLatin1Char('/') + folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

std::string Pharmacy::printed(int number) const
{
    const QString file = dataFolder() + QStringLiteral("/printed/%1.txt").arg(number, 8, 10, QLatin1Char('0'));
    return QString::fromUtf8(contentOf(file)).simplified().toStdString();
}

QJsonObject Pharmacy::optionsOf(const QJsonObject& position)
{
    return QJsonDocument::fromJson(position.value(QLatin1String("extendedOptions")).toString().toUtf8()).object();
}

QStringList Pharmacy::registeredBy(const QJsonObject& document)
{
    QStringList lines;
    for (const QJsonValue& position : document.value(QLatin1String("positions")).toArray()) {
        const QJsonObject options = optionsOf(position.toObject());
        if (options.value(QLatin1String("status")).toString() == QLatin1String("dispensed"))
            lines += dispenseLine(options.value(QLatin1String("id")).toString(),
                                  options.value(QLatin1String("doseQuantity")).toDouble(),
                                  options.value(QLatin1String("medicationDispenseId")).toString());
    }
    lines.sort();
    return lines;
}

QStringList Pharmacy::standingDispenses()
{
    QStringList lines;
    for (const RegistryProcess::Dispense& dispense : registry.dispenses())
        if (!dispense.cancelled)
            lines += dispenseLine(dispense.prescription, dispense.quantity, dispense.id);
    lines.sort();
    return lines;
}
