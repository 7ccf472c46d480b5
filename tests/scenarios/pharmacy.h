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

    /// Every step of the scenario came true.
    static void expectHeld(const Outcome& outcome) { EXPECT_EQ(outcome.exitCode, 0) << qPrintable(outcome.output); }

    /// Sets a key of the configuration ("section:key") for the register's next start.
    void configure(const QString& key, const QString& value);
    /// Puts a copy of one of the plug-in's layouts before its own; in it `widget` has another name.
    void loseWidget(const QString& layout, const QString& widget);
    /// Lets the registry begin again, at the URL that it has then.
    void restartRegistry(const QStringList& options);
    /// Lays a saved receipt of this folder into the data folder, as if the register had ended with it open.
    void leaveOpen(const QString& document);

    /// Plays a scenario file of this folder; returns when the register has ended.
    Outcome play(const QString& scenario, const QStringList& options = {});
    /// Plays steps: JSON objects, or several of them parted by commas.
    Outcome playSteps(const QByteArrayList& steps, const QStringList& options = {});

    /// Starts a scenario and leaves the register running.
    void start(const QString& scenario);
    void startSteps(const QByteArrayList& steps, const QStringList& options = {});
    /// Waits until the running register has printed `text`; false when it did not within the test's patience.
    bool waitForOutput(const QString& text);
    /// Waits until so many requests have come to an endpoint of the registry; false when they did not.
    bool waitForRequests(const QString& endpoint, int requests);
    /// Waits for the register's end.
    Outcome waitForEnd();
    /// True when the register did not end by itself but was killed.
    bool wasKilled() const;
    /// SIGKILL: the register has no chance to save anything.
    void kill();
    /// From now on no file of the running register can grow beyond so many bytes, as on a full disk; 0: as it was.
    void fillDisk(qulonglong bytes);

    RegistryProcess registry;

    /// The open receipt as it is saved; empty when there is none.
    QJsonObject savedDocument() const;
    QJsonArray savedPositions() const;
    /// The document in a file of the data folder; empty when there is none.
    QJsonObject document(const QString& file) const;
    /// A document put aside, or a finished one, by its number; empty when there is none.
    QJsonObject suspend(int number) const;
    QJsonObject finished(int number) const;
    /// The names of the files in a folder of the data folder, in order.
    QStringList files(const QString& folder) const;
    /// The words of the printed receipt of that number, each parted from the next by one blank; empty when there is
    /// none.
    std::string printed(int number) const;
    /// A position's extended options, read as JSON.
    static QJsonObject optionsOf(const QJsonObject& position);
    QString dataFolder() const;

    /// The dispenses that a document says are registered, each as a line of prescription, doses and dispense id.
    static QStringList registeredBy(const QJsonObject& document);
    /// The dispenses that stand with the registry, told in the same way.
    QStringList standingDispenses();

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
