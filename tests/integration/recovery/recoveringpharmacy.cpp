// SPDX-License-Identifier: MIT
#include "recoveringpharmacy.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class RecoveringPharmacy::Choice : public DispenseChoiceDialog
{
public:
    explicit Choice(RecoveringPharmacy& owner)
        : m_owner(owner)
    {
    }
    DispenseChoice ask(const DispenseChoiceParams& params) override
    {
        m_owner.choices.append(params);
        if (!m_owner.onChoice) {
            ADD_FAILURE() << "the cashier is asked";
            return {};
        }
        return m_owner.onChoice(params);
    }

private:
    RecoveringPharmacy& m_owner;
};

RecoveringPharmacy::RecoveringPharmacy(Recovery recovery, int timeoutSeconds)
    : pharmacy(Pharmacy::Over::Http, timeoutSeconds)
    , m_choice([this] { return QSharedPointer<Choice>::create(*this); })
{
    Singleton<Config>::get()->setForThisRun(u"RestClient:journal"_s, u"*/MedicationDispense/*"_s);
    Singleton<Config>::get()->setForThisRun(u"plugins:pharmacy"_s, u"true"_s);
    m_journal.emplace();
    if (recovery == Recovery::Present) {
        start();
    }
}

void RecoveringPharmacy::start()
{
    m_recovery.emplace();
    EXPECT_TRUE(m_recovery->init());
}

void RecoveringPharmacy::restart(Recovery recovery)
{
    m_recovery.reset();
    m_journal.reset();
    m_journal.emplace();
    pharmacy.takeSavedDocument();
    if (recovery == Recovery::Present) {
        start();
    }
    Event restored(EActivityListener::DocumentRestored);
    restored.addArgument(u"document"_s, QVariant::fromValue(pharmacy.document()));
    Singleton<ActivityNotifier>::get()->notify(restored);
}

EContext::Result RecoveringPharmacy::subtotal()
{
    const auto before = m_recovery ? m_recovery->beforeSubtotal() : EContext::GoOn;
    return before == EContext::GoOn ? pharmacy.subtotal() : before;
}

EContext::Result RecoveringPharmacy::cancelDocument()
{
    const auto before = m_recovery ? m_recovery->beforeCancelling() : EContext::GoOn;
    return before == EContext::GoOn ? pharmacy.cancelDocument() : before;
}

EContext::Result RecoveringPharmacy::cancelPosition(int position)
{
    control::Action action(control::RemovePosition);
    action.insert(u"positionNumber"_s, position);
    const auto before = m_recovery ? m_recovery->beforeRemoving(action) : EContext::GoOn;
    return before == EContext::GoOn ? pharmacy.cancelPosition(position) : before;
}
