// SPDX-License-Identifier: MIT
#pragma once

#include "delivery.h"
#include "faultscript.h"
#include "journal.h"
#include "jsonnode.h"
#include "prescriptionstore.h"
#include "registryapi.h"

#include <QList>

#include <optional>

namespace emulator
{
/// The registry as a test needs it: it begins with a seed, fails where a fault is ordered, and keeps a journal.
class ScriptedRegistry
{
public:
    /// @param dataFile SQLite file that keeps the state; empty: the state is in memory
    /// @param basePath path under which the registry is found; empty: none
    /// Throws EmulatorError when the data file cannot be used.
    ScriptedRegistry(const QString& dataFile, const QString& basePath, Clock clock);
    Q_DISABLE_COPY_MOVE(ScriptedRegistry)
    ~ScriptedRegistry() = default;

    /// The registry's answer, or what the due fault makes of it. Before a request that registers or cancels a dispense,
    /// those are carried out that a fault has kept back. The delivery must not outlive this object.
    Delivery answer(const HttpRequest& request);
    /// The answer to bytes that are no request.
    /// @param request has only the number of the connection
    /// @param status  400, 408, 413, 431 or 505
    Delivery answerUnreadable(const HttpRequest& request, int status);

    /// Takes the seed for reset(). Throws EmulatorError, and changes nothing, when the seed has a mistake.
    void keepSeed(const JsonNode& seed);
    /// Takes the seed, and begins again with it. Throws as keepSeed() does.
    void seed(const JsonNode& seed);
    /// Begins again with the seed, or with nothing when there is none: state, tokens, faults, requests that were kept
    /// back, and journal.
    void reset();
    /// Puts more active prescriptions on a card.
    void fillCard(const QString& card, int count);
    /// Books a dispense that another pharmacy, or another till of the same one, registered: no request of it is in the
    /// journal, and no fault hits it. Returns its new id. Throws EmulatorError when the prescription is unknown, not
    /// valid, or has not so many doses left.
    /// @param dispense its id and documents are not used; without a day it is of today
    QString dispenseElsewhere(Dispense dispense);
    /// The same for a dispense in the form of docs/emulator.md.
    QString dispenseElsewhere(const JsonNode& dispense);

    FaultScript& faults() { return m_faults; }
    Journal& journal() { return m_journal; }
    PrescriptionStore& store() { return m_store; }
    TokenService& tokens() { return m_api.tokens(); }

private:
    HttpAnswer carryOut(const HttpRequest& request, const Route& route, const std::optional<FaultOrder>& fault);
    Delivery deliver(qint64 journalNumber, Delivery delivery);
    QDate today() const { return m_clock().date(); }

    Clock m_clock;
    PrescriptionStore m_store;
    RegistryApi m_api;
    FaultScript m_faults;
    QList<HttpRequest> m_keptBack; ///< received, and not carried out yet
    Journal m_journal;
    std::optional<JsonNode> m_seed;
};
} // namespace emulator
