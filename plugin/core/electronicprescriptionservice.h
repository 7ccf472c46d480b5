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

/// The plug-in's root object. It puts goods for electronic prescriptions on the receipt and registers their dispense.
///
/// The register loads it, owns it and calls it on the main thread: through the handler and the triggers that init()
/// registers, and through handleEvent(). Calls to the registry block, between the two events of long work.
///
/// The steps of the workflow are virtual and call one another through the object, so that a double can replace a single
/// one. A step that shows a dialog returns false, a negative number or an empty list when the cashier goes back; that
/// is never an error. The step that says so shows an ElectronicPrescriptionException to the cashier. Every other
/// exception passes through to the register.
///
/// The order of the virtual members is part of the class: integrators' doubles are compiled against it. A line above
/// each group of members names the file that holds them; a file can hold several groups.
class ElectronicPrescriptionService : public BaseActivityListener, public BasicPlugin, protected DocumentWatcher
{
    Q_OBJECT
    Q_INTERFACES(AbstractPlugin)
    Q_PLUGIN_METADATA(IID "ElectronicPrescription")

public:
    using Prescriptions = QList<QSharedPointer<ElectronicPrescription>>;

    // Life cycle: core/lifecycle.cpp

    /// Creates the registry client, which reads its own settings, and declares the types that travel in a QVariant.
    /// Registers nothing with the register.
    ElectronicPrescriptionService();
    ~ElectronicPrescriptionService() override;
    Q_DISABLE_COPY_MOVE(ElectronicPrescriptionService)

public slots:
    /// Forgets the receipt when one is opened, closed or cancelled. When a saved one becomes current, takes its card
    /// number and forgets what was looked up for another receipt.
    void handleEvent(const Event& event) override;

public:
    /// Registers the command, the triggers, the listener and the forms with the register.
    /// @return false, with nothing registered, when the setting "plugins:pharmacy" is off
    bool init() override;

    // Look-up of a card's prescriptions: intake/prescriptionlookup.cpp

    /// Asks the registry for a card's prescriptions, caches them and the patient under `status`, and appends to
    /// `prescriptions` those that are not on the receipt yet.
    ///
    /// Shows the cashier what failed, or that there are none; the list is empty then. When the registry's answer
    /// failed, the list and both caches are unchanged.
    ///
    /// @param status the registry's status to ask for, such as "active"; sent unchanged
    virtual void getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                        Prescriptions& prescriptions);

    // Names in the goods database: intake/dictionaryname.cpp

    /// Fills the record's dictionary name from the table "medicine" of the goods database, once. The name is empty when
    /// the dictionary does not know the code. A failed query is logged and leaves the name unchanged; so does one that
    /// takes longer than two seconds.
    virtual void fillDictionaryName(const QSharedPointer<ElectronicPrescription>& prescription) const;

    // Prescriptions that are not on the receipt yet: intake/unprocessedprescriptions.cpp

    /// Replaces `prescriptions` by the cached ones of `status`. Without a cache entry the list is unchanged.
    ///
    /// Under the status "active" those on the receipt are left out; when none is left, a message says so.
    virtual void getUnprocessedElectronicPrescriptions(const QString& status, Prescriptions& prescriptions) const;

    /// Removes from `prescriptions` those that are already on the current receipt; the others keep their order.
    virtual void getUnprocessedElectronicPrescriptions(Prescriptions& prescriptions) const;

    // Events that the plug-in sends: core/lifecycle.cpp

    /// Reports to the register that long work begins.
    /// @param message shown until it ends
    virtual void sendStartEvent(const tr::Tr& message) const;
    /// Reports to the register that the long work is over.
    virtual void sendStopEvent() const;

    // From the list of prescriptions to the receipt: intake/processingloop.cpp

    /// Leads the cashier through choice, details, goods, doses and confirmation, and puts one prescription on the
    /// receipt. Going back from any step returns to the details, and from there to the list. Leaving the list ends it.
    ///
    /// An ElectronicPrescriptionException is shown to the cashier and ends it too.
    virtual void processElectronicPrescriptions(const QString& cardNumber, const QString& status,
                                                const Prescriptions& prescriptions);

    // Goods and doses: intake/medicineselection.cpp

    /// Lets the cashier choose goods with the prescription's non-proprietary name.
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

    // State of the receipt: core/lifecycle.cpp

    /// Forgets both caches and the card number.
    virtual void clear();

    // Registering and cancelling dispenses: core/dispensing.cpp

    /// Cancels the registered dispense of a position and marks it "canceled". Any other position is left alone.
    ///
    /// Shows the cashier what failed.
    ///
    /// @param saveDocument true: saves the current document after the change
    /// @return false when the registry did not cancel the dispense
    virtual bool cancelElectronicPrescription(const QSharedPointer<GoodsItem>& position, bool saveDocument) const;

    // The current document: core/currentdocument.cpp

    /// True when a position of the current document comes from a prescription.
    virtual bool hasPrescriptions() const;

    // The cashier's command: core/prescriptioncommand.cpp

    /// The prescription command: serves one prescription, of the receipt's card or of a card that it asks for.
    ///
    /// @param action carries "status", the registry's status to ask for
    /// @return Stop when the cashier gave no card or nothing was found; otherwise GoOn, also when there is no sale
    EContext::Result processElectronicPrescriptionsByAction(const control::Action& action);

    // Registering and cancelling dispenses: core/dispensing.cpp

    /// Registers every prescription position of the receipt that is not registered, and saves after each.
    ///
    /// Shows the cashier what failed. The positions before the failing one stay registered.
    /// @return Stop when one failed
    EContext::Result dispenseElectronicPrescriptions(const control::Action& action);

    // The hook before the subtotal: core/subtotalhook.cpp

    /// Registers the dispenses of a sale; cancels those of a return.
    EContext::Result beforeSubtotal(const control::Action& action);

    // Hooks before something is cancelled: core/cancellationhooks.cpp

    /// Before the whole receipt is cancelled: cancels its dispenses.
    EContext::Result beforeStornoAll(const control::Action& action);

    /// Before a document is voided: cancels its dispenses, up to the first failure.
    /// @param action carries the document under "document"
    EContext::Result cancelElectronicPrescriptions(const control::Action& action);

    /// Before one position is removed: cancels its dispense.
    /// @param action carries the position's number under "positionNumber"
    /// @return NotFound when the receipt has no such position
    EContext::Result cancelElectronicPrescriptionByAction(const control::Action& action);

    // The registry's answer into records: intake/prescriptionmapping.cpp
    //
    // Members that are missing or of another type read as empty text, 0, false and the invalid date. The resources are
    // those of HL7 FHIR, in the old vocabulary of docs/registry-protocol.md.

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

    /// Makes a position one of the prescription, see PositionOptions.
    /// @param finalDispense true: with these doses the prescription is served in full
    /// @param doses the doses handed out now
    void fillElectronicPrescriptionDataForPosition(const QSharedPointer<ElectronicPrescription>& prescription,
                                                   const QSharedPointer<GoodsItem>& position, bool finalDispense,
                                                   double doses) const;

    /// Sets the patient's share of the price, but not less than the minimum retail price, and has the receipt
    /// recalculated. When the patient pays everything, the price is unchanged and nothing is recalculated.
    void setPriceForPosition(const QSharedPointer<ElectronicPrescription>& prescription,
                             const QSharedPointer<GoodsItem>& position) const;

protected:
    /// A card number, and everything that the registry gave for it.
    using CardPrescriptions = std::pair<QString, Prescriptions>;

    // State. A double that replaces a step sets what that step leaves.

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

    // Life cycle: core/lifecycle.cpp

    /// A saved document has become current; null: the event carried none.
    void takeOver(const QSharedPointer<AbstractDocument>& document);

    // Look-up of a card's prescriptions: intake/prescriptionlookup.cpp

    /// One bundle always makes one prescription, also without a "MedicationPrescription" resource in it.
    void appendPrescriptions(const QJsonArray& bundles, Prescriptions& prescriptions) const;

    // From the list of prescriptions to the receipt: intake/processingloop.cpp

    /// Null when the cashier left the list.
    QSharedPointer<ElectronicPrescription> choosePrescription(const QString& status, const Prescriptions& prescriptions,
                                                              bool repeated) const;
    /// From the details to the receipt; going back from any later step leads to the details.
    /// @return false when the cashier went back to the list
    bool servePrescription(const QString& cardNumber, const QString& status,
                           const QSharedPointer<ElectronicPrescription>& prescription);
    /// Shows the details.
    /// @return false when the cashier went back to the list
    bool isServingConfirmed(const QString& status, const QSharedPointer<ElectronicPrescription>& prescription) const;
    void rememberCardNumber(const QString& cardNumber, const QSharedPointer<AbstractDocument>& document);

    // The registry's answer into records: intake/prescriptionmapping.cpp

    void fillPrescribedMedicine(const QJsonObject& resource, ElectronicPrescription& prescription) const;
    void fillMedicationPrescription(const QJsonObject& resource, ElectronicPrescription& prescription) const;

    // The current document: core/currentdocument.cpp

    /// False when there is no document, between receipts.
    bool isCurrentDocumentOf(int type) const;

    // Hooks before something is cancelled: core/cancellationhooks.cpp

    /// Cancels every registered dispense of a document, up to the first failure.
    /// @param document null: there is nothing to cancel
    /// @return Stop when one failed
    EContext::Result cancelDispensesOf(const QSharedPointer<AbstractDocument>& document) const;
};
