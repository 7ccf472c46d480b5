// SPDX-License-Identifier: MIT
#include "pharmacy.h"

#include "patience.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QProcessEnvironment>

#include <csignal>
#include <cstdio>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int lookInterval = 20; // milliseconds

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(content), content.size());
}

/// Empty when the file cannot be read.
QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Runs in the register's process before its program. A full disk becomes an error instead of a signal, and a read-only
/// folder is read-only for root too.
void loseDiskPrivileges()
{
    std::signal(SIGXFSZ, SIG_IGN);
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
}

QString dispenseLine(const QString& prescription, double doses, const QString& id)
{
    return u"%1: %2 doses as %3"_s.arg(prescription).arg(doses).arg(id);
}

} // namespace

void Pharmacy::SetUp()
{
    ASSERT_TRUE(m_folder.isValid());
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"data"_s));
    registry.start();
    m_register.setProcessChannelMode(QProcess::MergedChannels);
    m_register.setChildProcessModifier(loseDiskPrivileges);

    configure(u"plugins:pharmacy"_s, u"true"_s);
    configureRegistry();
    configure(u"ElectronicPrescription:clientId"_s, u"pharmacy-17"_s);
    configure(u"ElectronicPrescription:clientSecret"_s, u"secret&17"_s);
    configure(u"ElectronicPrescription:scope"_s, u"dispense"_s);
    configure(u"ElectronicPrescription:organizationIdentifier"_s, u"100000017"_s);
    configure(u"ElectronicPrescription:organizationName"_s, u"Аптека № 17"_s);
    configure(u"ElectronicPrescription:timeout"_s, u"20"_s);
    configure(u"Register:demoData"_s, u"true"_s);
    configure(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey,quantityKey,prescriptionKey,subtotalKey,removeKey,"
                                      "cancelReceiptKey,menuKey,paymentKey"_s);
    configure(u"FunctionKey.prescriptionKey:text"_s, u"Электронный рецепт"_s);
    configure(u"FunctionKey.prescriptionKey:key"_s, u"F5"_s);
    configure(u"FunctionKey.prescriptionKey:action"_s, u"94"_s);
    configure(u"FunctionKey.prescriptionKey:arguments"_s, u"status=active"_s);
}

void Pharmacy::TearDown()
{
    kill();
    registry.stop();
    if (HasFailure()) {
        m_folder.setAutoRemove(false);
        std::printf("The register's files and the picture are in %s\n", qPrintable(m_folder.path()));
    }
}

void Pharmacy::configure(const QString& key, const QString& value)
{
    m_configuration.insert(key, value);
}

void Pharmacy::setInEnvironment(const QString& variable, const QString& value)
{
    QProcessEnvironment environment = m_register.processEnvironment();
    if (environment.isEmpty()) {
        environment = QProcessEnvironment::systemEnvironment();
    }
    environment.insert(variable, value);
    if (value.isEmpty()) {
        environment.remove(variable);
    }
    m_register.setProcessEnvironment(environment);
}

void Pharmacy::configureRegistry()
{
    configure(u"ElectronicPrescription:requestsUrl"_s, registry.url());
    configure(u"ElectronicPrescription:authorizationUrl"_s, registry.url());
}

void Pharmacy::restartRegistry(const QStringList& options)
{
    registry.stop();
    registry.start(options);
    configureRegistry();
}

void Pharmacy::loseWidget(const QString& layout, const QString& widget)
{
    const QByteArray original = contentOf(QString::fromUtf8(PLUGIN_FOLDER "/electronicprescription/") + layout);
    QByteArray changed = original;
    changed.replace("name=\"" + widget.toUtf8() + '"', "name=\"renamed\"");
    ASSERT_NE(changed, original) << qPrintable(layout) << " has no " << qPrintable(widget);
    const QDir folder(m_folder.filePath(u"layouts"_s));
    ASSERT_TRUE(folder.mkpath(u"."_s));
    write(folder.filePath(layout), changed);
    configure(u"GUI:layouts"_s, folder.path());
}

void Pharmacy::leaveOpen(const QString& document)
{
    write(dataFolder() + u"/receipt.json"_s, contentOf(QString::fromUtf8(SCENARIO_FOLDER "/") + document));
}

Pharmacy::Outcome Pharmacy::play(const QString& scenario, const QStringList& options)
{
    launch(QString::fromUtf8(SCENARIO_FOLDER "/") + scenario, options);
    return waitForEnd();
}

Pharmacy::Outcome Pharmacy::playSteps(const QByteArrayList& steps, const QStringList& options)
{
    launchSteps(steps, options);
    return waitForEnd();
}

void Pharmacy::start(const QString& scenario)
{
    launch(QString::fromUtf8(SCENARIO_FOLDER "/") + scenario, {});
}

void Pharmacy::startSteps(const QByteArrayList& steps, const QStringList& options)
{
    launchSteps(steps, options);
}

void Pharmacy::launchSteps(const QByteArrayList& steps, const QStringList& options)
{
    const QString file = m_folder.filePath(u"steps.json"_s);
    write(file, R"({"steps": [)" + steps.join(", ") + "]}");
    launch(file, options);
}

void Pharmacy::launch(const QString& scenario, const QStringList& options)
{
    const QString configuration = m_folder.filePath(u"register.ini"_s);
    writeConfiguration(configuration);
    QStringList arguments{u"--config"_s, configuration, u"--data"_s,        dataFolder(),
                          u"--play"_s,   scenario,      u"--screenshots"_s, m_folder.path()};
    if (!options.contains(u"--plugins"_s)) {
        arguments += {u"--plugins"_s, QString::fromUtf8(PLUGIN_FOLDER)};
    }

    m_output.clear();
    m_register.start(QString::fromUtf8(REGISTER_PROGRAM), arguments + options);
    ASSERT_TRUE(m_register.waitForStarted(patience)) << qPrintable(m_register.errorString());
}

void Pharmacy::writeConfiguration(const QString& file) const
{
    QMap<QString, QByteArray> sections;
    for (auto it = m_configuration.cbegin(); it != m_configuration.cend(); ++it) {
        const QString section = it.key().section(u':', 0, 0);
        const QString key = it.key().section(u':', 1);
        sections[section] += key.toUtf8() + "=\"" + it.value().toUtf8() + "\"\n";
    }
    QByteArray ini;
    for (auto it = sections.cbegin(); it != sections.cend(); ++it) {
        ini += "[" + it.key().toUtf8() + "]\n" + it.value() + "\n";
    }
    write(file, ini);
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner)); // it holds a secret
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
        if (deadline.hasExpired() || m_register.state() != QProcess::Running) {
            return false;
        }
        m_register.waitForReadyRead(int(deadline.remainingTime()));
        m_output += QString::fromUtf8(m_register.readAll());
    }
    return true;
}

bool Pharmacy::waitForRequests(const QString& endpoint, int requests)
{
    QDeadlineTimer deadline(patience);
    while (registry.requestsTo(endpoint) < requests) {
        if (deadline.hasExpired() || m_register.state() != QProcess::Running) {
            return false;
        }
        m_register.waitForFinished(lookInterval); // a pause that the register's end cuts short
    }
    return true;
}

void Pharmacy::kill()
{
    if (m_register.state() == QProcess::NotRunning) {
        return;
    }
    m_register.kill();
    m_register.waitForFinished(patience);
    m_output += QString::fromUtf8(m_register.readAll());
}

void Pharmacy::sendSignal(int signal)
{
    ASSERT_EQ(::kill(static_cast<pid_t>(m_register.processId()), signal), 0);
}

void Pharmacy::fillDisk(qulonglong bytes)
{
    const rlimit limit{bytes == 0 ? RLIM_INFINITY : bytes, RLIM_INFINITY};
    ASSERT_EQ(::prlimit(static_cast<pid_t>(m_register.processId()), RLIMIT_FSIZE, &limit, nullptr), 0);
}

QString Pharmacy::dataFolder() const
{
    return m_folder.filePath(u"data"_s);
}

QJsonObject Pharmacy::document(const QString& file) const
{
    return QJsonDocument::fromJson(contentOf(dataFolder() + u'/' + file)).object();
}

QJsonObject Pharmacy::savedDocument() const
{
    return document(u"receipt.json"_s);
}

QJsonArray Pharmacy::savedPositions() const
{
    return savedDocument().value("positions"_L1).toArray();
}

QJsonObject Pharmacy::suspended(int number) const
{
    return document(u"putaside/%1.json"_s.arg(number, 8, 10, QChar(u'0')));
}

QJsonObject Pharmacy::finished(int number) const
{
    return document(u"finished/%1.json"_s.arg(number, 8, 10, QChar(u'0')));
}

QStringList Pharmacy::files(const QString& folder) const
{
    return QDir(dataFolder() + u'/' + folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

std::string Pharmacy::printed(int number) const
{
    const QString file = dataFolder() + u"/printed/%1.txt"_s.arg(number, 8, 10, QChar(u'0'));
    return QString::fromUtf8(contentOf(file)).simplified().toStdString();
}

QJsonObject Pharmacy::optionsOf(const QJsonObject& position)
{
    return QJsonDocument::fromJson(position.value("extendedOptions"_L1).toString().toUtf8()).object();
}

QStringList Pharmacy::registeredBy(const QJsonObject& document)
{
    QStringList lines;
    for (const QJsonValue& position : document.value("positions"_L1).toArray()) {
        const QJsonObject options = optionsOf(position.toObject());
        if (options.value("status"_L1).toString() == "dispensed"_L1) {
            lines += dispenseLine(options.value("id"_L1).toString(), options.value("doseQuantity"_L1).toDouble(),
                                  options.value("medicationDispenseId"_L1).toString());
        }
    }
    lines.sort();
    return lines;
}

QStringList Pharmacy::validDispenses()
{
    QStringList lines;
    for (const RegistryProcess::Dispense& dispense : registry.dispenses()) {
        if (!dispense.cancelled) {
            lines += dispenseLine(dispense.prescription, dispense.quantity, dispense.id);
        }
    }
    lines.sort();
    return lines;
}
