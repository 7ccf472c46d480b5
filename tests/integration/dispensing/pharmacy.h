// SPDX-License-Identifier: MIT
#pragma once

#include "activitynotifier.h"
#include "configured.h"
#include "dialogdouble.h"
#include "documentdouble.h"
#include "econtext.h"
#include "electronicprescriptionservice.h"
#include "inplace.h"
#include "registrythread.h"

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QSharedPointer>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>

/// What the plug-in needs of the configuration.
///
/// @param registry its URL
/// @param timeoutSeconds of a request
QMap<QString, QString> configurationFor(const QString& registry, const QString& dataFolder, int timeoutSeconds);

/// The seed of a registry with three prescriptions of one patient, whose card is 1100.
QString seedOfThreePrescriptions();

/// The plug-in's service with a document of three prescription positions, none of them registered, and an emulated
/// registry. The registry client, the HTTP client and the saving are the real ones.
class Pharmacy
{
public:
    enum class Over : int { Http, Https };

    explicit Pharmacy(Over over = Over::Http, int timeoutSeconds = 30);
    ~Pharmacy();
    Pharmacy(const Pharmacy&) = delete;
    Pharmacy& operator=(const Pharmacy&) = delete;

    EContext::Result subtotal();
    EContext::Result cancelDocument();
    EContext::Result cancelPosition(int position);
    /// Removes a position from the document, as the till does when cancelPosition() goes on.
    void removePosition(int position);

    /// The extended options of all positions, byte for byte.
    QStringList options() const;
    QJsonObject optionsOf(int position) const;
    void setOptions(int position, const QString& options);
    /// The saved document; empty when none was saved.
    QJsonObject savedDocument() const;
    /// The open document is the saved one from now on, as after a restart; the first one when none was saved.
    void takeSavedDocument();
    QSharedPointer<AbstractDocument> document() const { return m_document; }
    QJsonObject documentAsJson() const { return m_document->toJson(); }

    /// The prescription that a position comes from. The first is dispensed completely and paid by the patient alone;
    /// of the second the patient pays half, of the third nothing, and both are dispensed in part.
    static QString prescriptionOf(int position);
    /// Every dispense that the registry has booked for a position's prescription, cancelled ones included.
    QList<emulator::Dispense> dispensesOf(int position) const;
    /// The only one; the test fails when there is none or more than one.
    emulator::Dispense soleDispenseOf(int position) const;
    QString statusOfPrescription(int position) const;

    /// Changes the registry from the side.
    void atRegistry(const std::function<void(emulator::RegistryEmulator&)>& change) const;
    /// Orders faults of the registry.
    void order(const std::function<void(emulator::FaultScript&)>& order) const;
    /// The requests that reached the registry.
    QList<emulator::JournalEntry> requests() const;
    qsizetype asked(emulator::Endpoint endpoint) const;
    void forgetRequests() const;

    /// The messages since the last call.
    QList<DialogDouble::Message> takeMessages();

    /// An event of the register.
    struct HeardEvent {
        int code;
        qsizetype messages; ///< shown before it, since the last takeMessages()
        bool operator==(const HeardEvent&) const = default;
    };
    /// The events since the last call.
    QList<HeardEvent> takeEvents();

    QTemporaryDir dataFolder;

private:
    class Listener;

    RegistryThread m_registry;
    Configured m_config;
    DialogDouble m_dialog;
    qsizetype m_takenMessages = 0;
    Own<ActivityNotifier> m_notifier;
    QList<HeardEvent> m_events;
    std::unique_ptr<Listener> m_listener;
    QSharedPointer<DocumentDouble> m_document;
    std::optional<ElectronicPrescriptionService> m_service;
};

inline constexpr int everyPosition[] = {1, 2, 3};

/// The registry has booked exactly one dispense for the position, and the position has its id and is marked.
void expectRegistered(const Pharmacy& pharmacy, int position);

/// The position's only dispense is cancelled: the position is marked and keeps the id, the prescription is active.
void expectCancelled(const Pharmacy& pharmacy, int position);
