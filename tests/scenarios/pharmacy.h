// SPDX-License-Identifier: MIT
#pragma once

#include "qtprinting.h"
#include "registryprocess.h"

#include <QByteArrayList>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

/// A pharmacy: the registry emulator and the register as processes of their own. The data folder lives as long as the
/// test.
class Pharmacy : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// How a played scenario ended.
    struct Outcome {
        int exitCode = -1;
        QString output; ///< what the register printed, both streams
    };

    /// Every step of the scenario succeeded.
    static void expectPlayed(const Outcome& outcome) { EXPECT_EQ(outcome.exitCode, 0) << qPrintable(outcome.output); }

    /// Sets a key of the configuration for the register's next start.
    ///
    /// @param key such as "Register:demoData"
    void configure(const QString& key, const QString& value);
    /// Sets a variable of the environment for the register's next start.
    ///
    /// @param value empty: the variable is removed
    void setInEnvironment(const QString& variable, const QString& value);
    /// Has the register use a copy of one of the plug-in's layouts in which `widget` has another name.
    void loseWidget(const QString& layout, const QString& widget);
    /// Starts the registry again with these options, and configures its new URL.
    void restartRegistry(const QStringList& options);
    /// Copies a saved document of this folder into the data folder, as if the register had ended with it open.
    void leaveOpen(const QString& document);

    /// Plays a scenario file of this folder and returns when the register has ended.
    Outcome play(const QString& scenario, const QStringList& options = {});
    /// Plays steps. Each element is a JSON object, or several separated by commas.
    Outcome playSteps(const QByteArrayList& steps, const QStringList& options = {});

    /// Starts a scenario and leaves the register running.
    void start(const QString& scenario);
    void startSteps(const QByteArrayList& steps, const QStringList& options = {});
    /// Waits until the running register has printed `text`; false when it ends or the time is up.
    bool waitForOutput(const QString& text);
    /// Waits until an endpoint of the registry has got that many requests; false when the register ends or the time is
    /// up.
    ///
    /// @param endpoint its name on the admin port
    bool waitForRequests(const QString& endpoint, int requests);
    /// Waits until the register has ended.
    Outcome waitForEnd();
    /// True when the register did not end by itself but was killed.
    bool wasKilled() const;
    /// The id of the register's process.
    qint64 registerProcess() const { return m_register.processId(); }
    /// Ends the register with SIGKILL, so that it cannot save anything.
    void kill();
    /// Sends the running register a signal of the system.
    void sendSignal(int signal);
    /// Has the running register meet a full disk.
    ///
    /// @param bytes no file can grow beyond this; 0: the disk has room again
    void fillDisk(qulonglong bytes);

    RegistryProcess registry;

    /// The open document as it is saved; empty when there is none.
    QJsonObject savedDocument() const;
    QJsonArray savedPositions() const;
    /// The document in a file of the data folder; empty when there is none.
    QJsonObject document(const QString& file) const;
    /// A suspended or a finished document by its number; empty when there is none.
    QJsonObject suspended(int number) const;
    QJsonObject finished(int number) const;
    /// The names of the files in a folder of the data folder, sorted.
    QStringList files(const QString& folder) const;
    /// The words of the printed receipt of that number, separated by one blank; empty when there is none.
    std::string printed(int number) const;
    /// A position's extended options as JSON.
    static QJsonObject optionsOf(const QJsonObject& position);
    QString dataFolder() const;

    /// The registered dispenses of a document, each as a line of prescription, doses and dispense id.
    static QStringList registeredBy(const QJsonObject& document);
    /// The dispenses that the registry holds and has not cancelled, in the same form.
    QStringList validDispenses();

private:
    void configureRegistry();
    void writeConfiguration(const QString& file) const;
    void launch(const QString& scenario, const QStringList& options);
    void launchSteps(const QByteArrayList& steps, const QStringList& options);

    QTemporaryDir m_folder;
    QProcess m_register;
    QString m_output;
    QMap<QString, QString> m_configuration;
};
