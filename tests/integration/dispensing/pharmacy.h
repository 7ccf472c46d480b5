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
#include <QSharedPointer>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>

/// A till with a receipt of three prescription positions, none of them registered, and an emulated registry. The
/// service, the registry client, the HTTP client and the saving are the real ones.
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
    EContext::Result cancellation(int position);
    /// Takes a position off the receipt, as the till does once storno() let it.
    void takeOff(int position);

    /// The extended options of all positions, byte for byte.
    QStringList options() const;
    QJsonObject optionsOf(int position) const;
    void setOptions(int position, const QString& options);
    /// The saved receipt; empty when none was saved.
    QJsonObject savedDocument() const;
    QJsonObject documentAsJson() const { return m_document->toJson(); }

    /// The prescription that a position comes from. The first is dispensed completely and paid by the patient alone;
    /// of the second the patient pays half, of the third nothing, and both are dispensed in part.
    static QString prescriptionOf(int position);
    /// Every dispense of a position's prescription that the registry has booked, cancelled ones included.
    QList<emulator::Dispense> dispensesOf(int position) const;
    /// The one among them; fails the test when there is none or another.
    emulator::Dispense onlyDispenseOf(int position) const;
    QString statusOfPrescription(int position) const;

    /// Orders something of the registry that goes wrong.
    void order(const std::function<void(emulator::FaultScript&)>& order) const;
    /// The requests that reached the registry.
    QList<emulator::JournalEntry> requests() const;
    qsizetype asked(emulator::Endpoint endpoint) const;
    void forgetRequests() const;

    /// What the cashier was told since the last call.
    QList<DialogDouble::Message> takeShown();

    /// An event, and how many messages the cashier had been shown by then.
    struct Heard {
        int code;
        qsizetype messages;
        bool operator==(const Heard&) const = default;
    };
    /// Since the last call.
    QList<Heard> takeHeard();

    QTemporaryDir dataFolder;

private:
    class Listener;

    RegistryThread m_registry;
    Configured m_config;
    DialogDouble m_dialog;
    qsizetype m_messagesTaken = 0;
    Own<ActivityNotifier> m_notifier;
    QList<Heard> m_heard;
    std::unique_ptr<Listener> m_listener;
    QSharedPointer<DocumentDouble> m_document;
    std::optional<ElectronicPrescriptionService> m_service;
};

inline constexpr int everyPosition[] = {1, 2, 3};

/// The position is registered: marked and with the id of the only dispense that the registry has booked for it.
void expectRegistered(const Pharmacy& pharmacy, int position);

/// The position's one dispense was cancelled: the position is marked and keeps the id, the prescription is active.
void expectCancelled(const Pharmacy& pharmacy, int position);
