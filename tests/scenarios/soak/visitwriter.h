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

namespace soak
{

/// A prescription that is dispensed once.
struct PlannedPrescription {
    QString id;
    Medicine medicine{};
    int doses = 0;         ///< prescribed; whole
    int patientShare = 10; ///< tenths of the price

    /// What the patient pays for a pack, in kopecks.
    int benefitPrice() const;
};

/// A line of a planned document.
struct PlannedPosition {
    qint64 sum = 0;            ///< kopecks
    int prescription = -1;     ///< index into the visit's prescriptions; -1: none
    bool isLast = false;       ///< its dispense completes the prescription
    bool isRegistered = false; ///< as the document says
    bool isBooked = false;     ///< at the registry
    bool isOpen = false;       ///< of its last request only the registry knows what became of it
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

    /// The next request to the fault's endpoint is hit, after `passing` others. A second fault waits for the first one;
    /// when the visit ends before it, it is dropped.
    void expectFault(const Fault& fault, int passing);

    void opensADocument();
    void addsGoods();
    /// Gives the card, until the list of prescriptions is there.
    void looksUp(const QString& card, const QList<PlannedPrescription>& prescriptions);
    /// Serves the next prescription of the list.
    void serves();
    /// Registers the positions, as often as it takes, and pays.
    void pays();

    void opensTheReturn(const PlannedSale& sale);
    /// Cancels the dispenses, as often as it takes, and pays out.
    void paysOut();

    PlannedSale sale() const;
    Visit finish();

private:
    struct ExpectedFault {
        Fault fault;
        int passing = 0;
    };

    bool asks(Endpoint endpoint);
    void readsError();
    void readsNotice(const QByteArray& message);
    void expectPositions();
    void goesToThePayment(Endpoint sent);
    bool triesToGoToThePayment(Endpoint sent);
    bool settles(Endpoint sent);
    bool findsOut(Endpoint sent, PlannedPosition& position);
    bool sends(Endpoint endpoint, PlannedPosition& position);

    Chance& m_chance;
    PlannedSale m_sale;
    Visit m_visit;
    QMap<Endpoint, int> m_requests;
    QList<ExpectedFault> m_expected;
    QByteArray m_error;          ///< what the cashier reads of the request that failed last
    bool m_isCarriedOut = false; ///< the last request
    qsizetype m_served = 0;
};

} // namespace soak
