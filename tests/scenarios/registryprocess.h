// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The registry emulator as a process of its own, controlled through its admin port.
class RegistryProcess
{
public:
    ~RegistryProcess();

    /// Starts it with the demo's patients, on free ports.
    void start(const QStringList& options = {});
    void stop();
    QString url() const { return m_url; }

    /// The requests that came in, oldest first.
    QJsonArray journal();
    /// Their paths (without query), oldest first.
    QStringList requestedPaths();
    /// How many requests an endpoint has got.
    ///
    /// @param endpoint its name on the admin port
    int requestsTo(const QString& endpoint);
    void forgetRequests();
    /// Orders a fault.
    ///
    /// @param fault in the form of the admin port
    void orderFault(const QJsonObject& fault);
    void withdrawFaults();
    /// The faults that no request has met yet, in the form of the admin port.
    QJsonArray waitingFaults();
    /// Begins again with these patients.
    ///
    /// @param seed in the form of docs/emulator.md
    void seed(const QJsonObject& seed);

    /// Changes rules of the registry, in the form of docs/emulator.md.
    void changeRules(const QJsonObject& rules);
    /// Books a dispense that was registered elsewhere, in the form of docs/emulator.md.
    void dispenseElsewhere(const QJsonObject& dispense);

    /// A dispense that this pharmacy registered.
    struct Dispense {
        QString id;
        QString prescription;
        double quantity = 0; ///< doses
        bool final = false;
        bool cancelled = false;
    };
    /// All of them. Those of one prescription are in the order of their registration.
    QList<Dispense> dispenses();
    QList<Dispense> dispensesOf(const QString& prescription);
    QString statusOf(const QString& prescription);

    /// All prescriptions with all their dispenses, as in the emulator's state.
    QJsonArray prescriptions();

private:
    QJsonDocument askAdmin(const QByteArray& verb, const QString& path, const QByteArray& body = {});

    QProcess m_process;
    QString m_url;
    QString m_adminUrl;
};
