// SPDX-License-Identifier: MIT
#pragma once

#include "configured.h"
#include "dialogdouble.h"
#include "dispensechoicedialog.h"
#include "document.h"
#include "eactiontype.h"
#include "econtext.h"
#include "faultscript.h"
#include "mocked.h"
#include "registrythread.h"
#include "savingdouble.h"
#include "till.h"

#include <QList>
#include <QSharedPointer>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <stdexcept>

/// The power is gone. Ends whatever was under way, as far as it can be ended.
struct PowerCut : std::runtime_error {
    PowerCut()
        : std::runtime_error("power cut")
    {
    }
};

/// The register without its window, with the prescription plug-in and the one that settles lost answers, and an
/// emulated registry. Commands run with the hooks of both plug-ins. The power can fail at any save; a command that runs
/// then stops, or throws PowerCut.
///
/// A cashier who is asked which dispense is the right one takes the first.
class RecoveringRegister
{
public:
    RecoveringRegister();
    ~RecoveringRegister();
    Q_DISABLE_COPY_MOVE(RecoveringRegister)

    /// Until the next restart().
    Till& till() const;

    // The cashier's commands

    EContext::Result run(control::EActionType type, const QVariantMap& arguments = {}) const;
    /// Puts the goods of a prescription on the open sale, with the patient's card.
    ///
    /// @param prescription 1, 2 or 3
    /// @param isFinal nothing more is to be dispensed on it
    void serve(int prescription, double doses, bool isFinal) const;
    /// Goes to the subtotal and takes or gives the money, in cash.
    ///
    /// @return whether the document is closed
    bool close() const;
    /// Voids a suspended document or a closed sale.
    EContext::Result voidDocument(const QSharedPointer<Document>& document) const;

    /// Compares the documents of the day with the registry.
    void compare() const;

    // Power

    /// The power fails at one of the next saves. From then on nothing is saved, until restart().
    ///
    /// @param nth 1 is the next save
    /// @param isSaved it fails after that save, otherwise before it
    void cutPowerAt(int nth, bool isSaved);
    void keepPower() { m_savesLeft = 0; }
    bool hasPower() const { return m_hasPower; }
    /// Ends the register, and starts it with what the disk has.
    void restart();

    // Books

    /// All documents: open, suspended and finished, as they are saved.
    QList<QSharedPointer<Document>> documents() const;
    /// What the registry holds and has not cancelled, each as a line of prescription, doses and dispense id; sorted.
    QStringList registryBooks() const;
    /// What the sales say that are not given up, in the same form.
    QStringList documentBooks() const;

    /// Orders faults of the registry.
    void order(const std::function<void(emulator::FaultScript&)>& order) const;

    /// How often the cashier was asked which dispense is the right one.
    int choices() const { return m_choices; }

private:
    class Running;
    class FirstChoice;

    bool save(const SavingDouble::Write& write);
    qsizetype requests() const;

    QTemporaryDir m_folder;
    RegistryThread m_registry;
    Configured m_config;
    DialogDouble m_dialog;
    SavingDouble m_saving;
    int m_choices = 0;
    Mocked<DispenseChoiceDialog> m_choice;
    std::unique_ptr<Running> m_running;
    bool m_hasPower = true;
    int m_savesLeft = 0; ///< until the power fails; 0: it does not
    bool m_isLastSaved = false;
    qsizetype m_requestsBefore = 0; ///< that reached the registry before the power failed
};
