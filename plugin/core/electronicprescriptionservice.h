// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "baseactivitylistener.h"
#include "basicplugin.h"
#include "documentwatcher.h"
#include "econtext.h"
#include "electronicprescription.h"
#include "event.h"
#include "patient.h"
#include "tr.h"

#include <QDate>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

#include <utility>

class AbstractDocument;
class ElectronicPrescriptionInterface;
class GoodsItem;
class QJsonArray;

namespace Log4Qt
{
class Logger;
}

/// The plug-in's root object: serves electronic prescriptions onto the receipt and registers their dispense.
///
/// The register loads it, owns it and calls it on the main thread: through the handler and the triggers that init()
/// registers, and through handleEvent(). Calls to the registry block, bracketed by the events of long work.
///
/// The steps of the workflow are virtual and call one another through the object, so that a double can replace a
/// single one. A step that shows a dialog returns false, a negative number or an empty list when the cashier goes
/// back: that is never an error. ElectronicPrescriptionException is shown to the cashier by the step that says so;
/// every other exception goes through to the register.
///
/// The order of the virtual members is part of the class: integrators' doubles are compiled against it.
class ElectronicPrescriptionService : public BaseActivityListener, public BasicPlugin, protected DocumentWatcher
{
    Q_OBJECT
    Q_INTERFACES(AbstractPlugin)
    Q_PLUGIN_METADATA(IID "ElectronicPrescription")

public:
    using Prescriptions = QList<QSharedPointer<ElectronicPrescription>>;

    // Life cycle: core/lifecycle.cpp

    /// Creates the registry client, which reads its own settings; registers nothing.
    ElectronicPrescriptionService();
    ~ElectronicPrescriptionService() override;
    Q_DISABLE_COPY_MOVE(ElectronicPrescriptionService)

public slots:
    /// Forgets the receipt when one is opened, closed or cancelled, and takes the card number over from a restored one.
    void handleEvent(const Event& event) override;

public:
    /// Registers the command, the triggers, the listener and the forms with the register.
    /// @return false, with nothing registered, when the setting "plugins:pharmacy" is off
    bool init() override;

    // Look-up of a card's prescriptions: intake/prescriptionlookup.cpp

    /// Asks the registry for a card's prescriptions, caches them and the patient under `status`, and appends to
    /// `prescriptions` those that are not on the receipt yet.
    ///
    /// Shows the cashier what failed, or that there are none; the caller looks whether the list is empty. When the
    /// registry's answer failed the list and both caches stay as they were.
    ///
    /// @param status the registry's status to ask for, such as "active"; sent as it is
    virtual void getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                        Prescriptions& prescriptions);

    /// Fills the record's dictionary name from table "medicine" of the goods database, once; empty when the
    /// dictionary does not know the code. A database error is logged and leaves the name empty.
    virtual void fillDictionaryName(const QSharedPointer<ElectronicPrescription>& prescription) const;

    // What is not on the receipt yet: intake/unprocessedprescriptions.cpp

    /// Replaces `prescriptions` by the cached ones of `status`; without a cache entry the list stays.
    ///
    /// Under the status "active" those on the receipt are left out, and when none is left the cashier is told so.
    virtual void getUnprocessedElectronicPrescriptions(const QString& status, Prescriptions& prescriptions) const;

    /// Removes from `prescriptions` those that are already on the current receipt; the others keep their order.
    virtual void getUnprocessedElectronicPrescriptions(Prescriptions& prescriptions) const;

    // Events of our own: core/lifecycle.cpp

    /// Tells the register that a long work begins, and what to show meanwhile.
    virtual void sendStartEvent(const tr::Tr& message) const;
    /// Tells the register that the long work is over.
    virtual void sendStopEvent() const;

    // The cashier's way from the list to the receipt: intake/processingloop.cpp

    /// Leads the cashier through choosing, details, goods, doses and confirmation, and puts one prescription on the
    /// receipt. Going back from any step returns to the details, from there to the list; leaving the list ends it.
    ///
    /// ElectronicPrescriptionException is shown to the cashier and ends it too.
    virtual void processElectronicPrescriptions(const QString& cardNumber, const QString& status,
                                                const Prescriptions& prescriptions);

    // Goods and doses: intake/medicineselection.cpp

    /// Has the cashier choose goods of the prescription's non-proprietary name.
    /// @param selected the register's selection, for addSelectedMedicine()
    /// @return false when the cashier went back
    virtual bool selectMedicineForElectronicPrescription(const QSharedPointer<ElectronicPrescription>& prescription,
                                                         QVariant& selected) const;

    /// Asks for the doses handed out now, until a number of at least 0.001 is entered. There is no upper bound.
    /// @return false when the cashier went back
    virtual bool inputDispensedDoseQuantity(const QSharedPointer<ElectronicPrescription>& prescription,
                                            double& doses) const;

    /// Puts the chosen goods on the receipt.
    /// @return the number of the new position, or -1
    virtual int addSelectedMedicine(const QVariant& selected) const;

    // The receipt's state: core/lifecycle.cpp

    /// Forgets both caches and the card number.
    virtual void clear();

    // Registering dispenses and taking them back: core/dispensing.cpp

    /// Cancels the registered dispense of a position and marks it "canceled"; any other position is left alone.
    ///
    /// Shows the cashier what failed.
    ///
    /// @param saveDocument true: saves the current document after the change
    /// @return false when the registry did not cancel the dispense
    virtual bool cancelElectronicPrescription(const QSharedPointer<GoodsItem>& position, bool saveDocument) const;

    // The cashier's command: core/prescriptioncommand.cpp

    /// True when a position of the current receipt comes from a prescription.
    virtual bool hasPrescriptions() const;

    /// The prescription command: serves one prescription of the receipt's card, or of one that is asked for.
    ///
    /// @param action carries "status", the registry's status to ask for
    /// @return Stop when the cashier gave no card or nothing was found; GoOn otherwise, also without a sale
    EContext::Result processElectronicPrescriptionsByAction(const control::Action& action);

    // Registering dispenses and taking them back: core/dispensing.cpp

    /// Registers every prescription position of the receipt that is not registered, and saves after each.
    ///
    /// Shows the cashier what failed; the positions before the failing one stay registered.
    EContext::Result dispenseElectronicPrescriptions(const control::Action& action);

    // Hooks around the register's actions: core/cancellationhooks.cpp

    /// Before the subtotal: registers the dispenses of a sale, cancels those of a cancelling document.
    EContext::Result beforeSubtotal(const control::Action& action);

    /// Before the whole receipt is cancelled: cancels its dispenses.
    EContext::Result beforeStornoAll(const control::Action& action);

    /// Cancels the dispenses of the document that the action carries under "document"; stops at the first failure.
    EContext::Result cancelElectronicPrescriptions(const control::Action& action);

    /// Before one position is cancelled: cancels the dispense of the position that "positionNumber" names.
    /// @return NotFound when the receipt has no such position
    EContext::Result cancelElectronicPrescriptionByAction(const control::Action& action);

    // The registry's answer into records: intake/prescriptionmapping.cpp
    //
    // Missing and misshapen members read as empty text, 0, false and the invalid date. The resources are those of
    // HL7 FHIR, in the old vocabulary of docs/registry-protocol.md.

    /// Caches the patient of a "Patient" resource under `status`.
    void fillPatient(const QString& status, const QJsonObject& patient);

    /// Applies one resource of a prescription's bundle; a resource of an unknown type changes nothing.
    void fillElectronicPrescription(const QJsonObject& resource,
                                    const QSharedPointer<ElectronicPrescription>& prescription) const;

    /// Makes a new organization of an "Organization" resource.
    void fillPayingElectronicPrescriptionOrganization(
        const QJsonObject& organization, QSharedPointer<PayingElectronicPrescriptionOrganization>& result) const;

    /// The first family name, the first given name and the last given name, with a blank between each two. Always
    /// three parts, also when they are empty or the same.
    QString getPatientOrPractitionerName(const QJsonObject& name) const;

    // The new position: intake/positionfilling.cpp

    /// Marks a position as one of the prescription; what is written is positionformat.h's.
    /// @param finalDispense true: with these doses the prescription is served in full
    /// @param doses the doses handed out now
    void fillElectronicPrescriptionDataForPosition(const QSharedPointer<ElectronicPrescription>& prescription,
                                                   const QSharedPointer<GoodsItem>& position, bool finalDispense,
                                                   double doses) const;

    /// Sets the patient's share of the price, not below the minimum retail price, and has the receipt recalculated.
    /// A prescription that the patient pays in full leaves the price as it is.
    void setPriceForPosition(const QSharedPointer<ElectronicPrescription>& prescription,
                             const QSharedPointer<GoodsItem>& position) const;

protected:
    /// A card number, and everything that the registry gave for it.
    using CardPrescriptions = std::pair<QString, Prescriptions>;

    // State. A double that replaces a step sets what the step would have left.

    QSharedPointer<ElectronicPrescriptionInterface> registryClient; ///< never null
    QMap<QString, QSharedPointer<Patient>> patientCache;            ///< by the status asked for
    QMap<QString, CardPrescriptions> prescriptionCache;             ///< by the status asked for; not filtered
    QString lastCardNumber;                                         ///< the receipt's card number; null: none
    QString dosageSystemId; ///< coding system of the national dosage dictionary, a URI
    Log4Qt::Logger* logger; ///< not owned

private:
    /// The one status under which prescriptions can be served.
    static constexpr QLatin1StringView activeStatus{"active"};
    /// The document keeps the card number under the class's name and this key.
    static constexpr QLatin1StringView cardNumberKey{"cardNumber"};

    // Look-up of a card's prescriptions: intake/prescriptionlookup.cpp

    void appendPrescriptions(const QJsonArray& bundles, Prescriptions& prescriptions) const;

    // The cashier's way from the list to the receipt: intake/processingloop.cpp

    QSharedPointer<ElectronicPrescription> choosePrescription(const QString& status, const Prescriptions& prescriptions,
                                                              bool repeated) const;
    bool servePrescription(const QString& cardNumber, const QString& status,
                           const QSharedPointer<ElectronicPrescription>& prescription);
    bool isServingConfirmed(const QString& status, const QSharedPointer<ElectronicPrescription>& prescription) const;
    void rememberCardNumber(const QString& cardNumber, const QSharedPointer<AbstractDocument>& document);

    // The registry's answer into records: intake/prescriptionmapping.cpp

    void fillPrescribedMedicine(const QJsonObject& resource, ElectronicPrescription& prescription) const;
    void fillMedicationPrescription(const QJsonObject& resource, ElectronicPrescription& prescription) const;

    // Hooks around the register's actions: core/cancellationhooks.cpp

    bool isCurrentDocumentOf(int type) const;
};
