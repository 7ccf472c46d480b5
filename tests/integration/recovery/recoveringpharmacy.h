// SPDX-License-Identifier: MIT
#pragma once

#include "dispensechoicedialog.h"
#include "dispenserecovery.h"
#include "documentarchive.h"
#include "inplace.h"
#include "mocked.h"
#include "pharmacy.h"
#include "requestjournal.h"

#include <functional>
#include <optional>

/// A Pharmacy with a journal of requests, and with the plug-in that settles what is open in it.
class RecoveringPharmacy
{
public:
    enum class Recovery : int { Present, Absent };

    explicit RecoveringPharmacy(Recovery recovery = Recovery::Present, int timeoutSeconds = 30);

    // The register's commands: the hooks of both plug-ins, in their order.

    EContext::Result subtotal();
    EContext::Result cancelDocument();
    EContext::Result cancelPosition(int position);

    /// From now on nothing of the plug-in runs, as when the power is gone.
    void unplug() { m_recovery.reset(); }
    /// The power comes back: all is as the disk has it.
    void restart(Recovery recovery = Recovery::Present);

    qsizetype openRequests() const { return m_journal->object.requests().size(); }

    /// Answers each question which dispense is the right one. While it is empty a question fails the test.
    std::function<DispenseChoice(const DispenseChoiceParams&)> onChoice;
    /// The questions so far.
    QList<DispenseChoiceParams> choices;

    Pharmacy pharmacy;

private:
    class Archive;
    class Choice;

    void start();

    std::optional<Own<RequestJournal>> m_journal;
    std::optional<DispenseRecovery> m_recovery; ///< empty: absent
    Mocked<DispenseChoiceDialog> m_choice;
};
