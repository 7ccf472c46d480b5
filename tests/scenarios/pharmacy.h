// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A pharmacy for a test: the registry emulator and the register as processes of their own, with a data folder that
/// lives as long as the test.
class Pharmacy : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// What a played scenario left behind.
    struct Outcome {
        int exitCode = -1;
        QString output; ///< what the register printed, both streams
    };

    /// Sets a key of the configuration ("section:key") for the register's next start.
    void configure(const QString& key, const QString& value);

    /// Plays a scenario file of this folder; returns when the register has ended.
    Outcome play(const QString& scenario, const QStringList& options = {});
    /// Plays steps given as JSON text.
    Outcome playSteps(const QByteArray& steps, const QStringList& options = {});

    /// Starts a scenario and leaves the register running; see waitForOutput() and kill().
    void start(const QString& scenario);
    /// Waits until the running register has printed `text`; false when it did not within the test's patience.
    bool waitForOutput(const QString& text);
    /// SIGKILL: the register has no chance to save anything.
    void kill();

    /// The requests that the emulator has seen, oldest first.
    QJsonArray journal();
    /// The paths (without query) of the journal's requests, oldest first.
    QStringList requestedPaths();
    /// Orders a fault of the emulator, in the form of its admin port.
    void orderFault(const QJsonObject& fault);
    void stopRegistry();

    /// The open receipt as it is saved; empty when there is none.
    QJsonObject savedReceipt() const;
    QJsonArray savedPositions() const;
    /// A position's extended options, read as JSON.
    static QJsonObject optionsOf(const QJsonObject& position);
    QString dataFolder() const;

private:
    void startRegistry();
    void launch(const QString& scenario, const QStringList& options);
    Outcome waitForEnd();
    QJsonDocument askAdmin(const QByteArray& verb, const QString& path, const QByteArray& body = {});

    QTemporaryDir m_folder;
    QProcess m_registry;
    QProcess m_register;
    QString m_registryUrl;
    QString m_adminUrl;
    QString m_output;
    QMap<QString, QString> m_configuration;
};
