// SPDX-License-Identifier: MIT
#pragma once

#include "chance.h"
#include "demogoods.h"
#include "fault.h"
#include "plan.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace soak
{

/// What the registry knows of a planned prescription. Doses are whole.
struct PlannedPrescription {
    QString id;
    Medicine medicine{};
    int doses = 0;         ///< prescribed
    int patientShare = 10; ///< tenths of the price
    int bookedDoses = 0;
    bool isFinalBooked = false;

    bool isCompleted() const { return isFinalBooked || bookedDoses >= doses; }
    /// What the patient pays for a pack, in kopecks.
    int benefitPrice() const;
};

/// A line of a planned document.
struct PlannedPosition {
    qint64 sum = 0;        ///< kopecks
    int prescription = -1; ///< index into the visit's prescriptions; -1: none
    int doses = 0;
    bool isFinal = false;
    bool isRegistered = false; ///< as the document knows it
    bool isCancelled = false;  ///< at the registry
};

/// A planned sale, as a return finds it.
struct PlannedSale {
    int number = 0;
    QList<PlannedPosition> positions;
    QList<PlannedPrescription> prescriptions;

    qint64 total() const;
};

/// Writes what the cashier does for one customer, and follows what register and registry make of it.
class VisitWriter
{
public:
    VisitWriter(Chance& chance, int document);

    /// The next request to the fault's endpoint is hit, after `passing` others.
    void expectFault(const Fault& fault, int passing);

    void opensADocument();
    void addsGoods();
    /// Gives the card, until the list of prescriptions is there.
    void looksUp(const QString& card, const QList<PlannedPrescription>& prescriptions);
    /// Serves the next prescription of the list.
    void serves();
    /// To the payment: registers the positions, removing what the registry refuses. False when nothing was left to
    /// sell and the document was cancelled.
    bool registers();
    void pays();

    void opensTheReturn(const PlannedSale& sale);
    /// Cancels the dispenses and pays out. False when a dispense could not be cancelled, and with it the return.
    bool paysOut();

    PlannedSale sale() const;
    Visit finish(const QString& state);

private:
    bool asks(Endpoint endpoint);
    bool registersAll();
    bool registersOne(PlannedPosition& position);
    bool sendsDispense(PlannedPosition& position);
    std::optional<QByteArray> refusalOf(const PlannedPosition& position) const;
    bool givesUp(PlannedPosition& position);
    bool cancelsAll();
    bool cancelsOne(PlannedPosition& position);
    void reads(const QByteArray& message);
    void expectPositions();
    void expectPrice(int kopecks);
    void goesToThePayment();

    Chance& m_chance;
    PlannedSale m_sale;
    Visit m_visit;
    QMap<Endpoint, int> m_requests;
    std::optional<Fault> m_fault;
    int m_passing = 0;
    QByteArray m_message;        ///< for the request that failed last
    bool m_isCarriedOut = false; ///< the same request
    PlannedPosition* m_refused = nullptr;
    qsizetype m_served = 0;
    bool m_hadFault = false;
};

} // namespace soak
