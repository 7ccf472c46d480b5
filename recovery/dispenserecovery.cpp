// SPDX-License-Identifier: MIT
#include "dispenserecovery.h"

#include "actionhandler.h"
#include "actiontrigger.h"
#include "activitynotifier.h"
#include "basicexception.h"
#include "config.h"
#include "currenttime.h"
#include "dialog.h"
#include "dispenseanswer.h"
#include "dispensechoiceformcreator.h"
#include "graphicaluserinterface.h"
#include "loyaltysystemlayer.h"
#include "reconciliation.h"
#include "recoveryregistry.h"
#include "recoverytexts.h"
#include "reportprinter.h"
#include "requestjournal.h"
#include "standingwarning.h"
#include "undecideddocuments.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

namespace
{

/// The prescription plug-in's hooks have 2 and 3.
constexpr int priority = 1;

Log4Qt::Logger* logger()
{
    return Log4Qt::LogManager::logger(u"dispenseRecovery"_s);
}

/// True when the journal keeps both requests about a dispense.
bool isJournalKept(const ElectronicPrescriptionInterface& registry)
{
    const RequestJournal* const journal = Singleton<RequestJournal>::get();
    const QString base =
        Singleton<Config>::get()->getString(u"ElectronicPrescription:requestsUrl"_s, u"http://localhost"_s);
    return journal->covers(registry.formUrl(base, dispenseanswer::registrationPath)) &&
           journal->covers(registry.formUrl(base, dispenseanswer::cancellationPath(u"1"_s)));
}

/// The positions on the screen say by then what the message says.
void showFindings(const QSharedPointer<AbstractDocument>& document, const QStringList& lines)
{
    if (!lines.isEmpty()) {
        Singleton<LoyaltySystemLayer>::get()->recalculate(document);
        Dialog::create()->showMessage({tr::undefined, lines.join(u'\n')}, Dialog::Notice, 0, 0);
    }
}

/// @param setting separated by commas; without one of them the default is taken
QStringList statusesIn(const QString& setting)
{
    QStringList statuses;
    const QStringList words = setting.split(u',');
    for (const QString& word : words) {
        statuses.append(word.trimmed());
    }
    statuses.removeAll(QString());
    return statuses.isEmpty() ? QStringList{u"active"_s, u"completed"_s} : statuses;
}

} // namespace

DispenseRecovery::DispenseRecovery() = default;
DispenseRecovery::~DispenseRecovery() = default;

bool DispenseRecovery::init()
{
    const Config* const config = Singleton<Config>::get();
    if (!config->getBool(u"plugins:pharmacy"_s, false)) {
        logger()->error(u"The prescription plug-in is switched off: plugins:pharmacy"_s);
        return false;
    }
    m_registry = std::make_unique<RecoveryRegistry>();
    if (!isJournalKept(*m_registry)) {
        throw BasicException(recoverytexts::journalMissing());
    }
    m_statuses = statusesIn(config->getString(u"DispenseRecovery:statuses"_s));
    m_isJournalDoubtful = Singleton<RequestJournal>::get()->wasDamaged();

    struct Hook {
        EContext::Code context;
        control::EActionType action;
        std::function<EContext::Result(const control::Action&)> run;
    };
    const auto subtotal = [this](const control::Action&) { return beforeSubtotal(); };
    const auto cancelling = [this](const control::Action&) { return beforeCancelling(); };
    const auto removing = [this](const control::Action& action) { return beforeRemoving(action); };
    const auto voiding = [this](const control::Action& action) { return beforeVoiding(action); };
    const Hook hooks[] = {
        {EContext::OpenDocument, control::Subtotal, subtotal},
        {EContext::OpenDocument, control::SubtotalAndPayment, subtotal},
        {EContext::OpenDocument, control::CancelDocument, cancelling},
        {EContext::OpenDocument, control::CancelDocumentFromMenu, cancelling},
        {EContext::OpenDocument, control::RemovePosition, removing},
        {EContext::Idle, control::VoidDocument, voiding},
        {EContext::OpenDocument, control::VoidDocument, voiding},
        {EContext::StoredDocuments, control::VoidDocument, voiding},
    };
    for (const Hook& hook : hooks) {
        addTrigger({hook.context, hook.action, ActionTrigger::Before, hook.run, ActionTrigger::Any, priority});
    }
    for (const auto context : {EContext::Idle, EContext::OpenDocument}) {
        addHandler({context, reconcileCommand, [this](const control::Action&) { return reconcile(); }, true});
    }
    Singleton<ActivityNotifier>::get()->subscribe(this);
    Singleton<GraphicalUserInterface>::get()->addFormCreator(QSharedPointer<DispenseChoiceFormCreator>::create());
    TillDocuments documents;
    warnOfUndecided(documents);
    Singleton<RequestJournal>::get()->setSettledByPlugin(true);
    return true;
}

void DispenseRecovery::deinit()
{
    Singleton<RequestJournal>::get()->setSettledByPlugin(false);
}

void DispenseRecovery::handleEvent(const Event& event)
{
    const QSharedPointer<AbstractDocument> document = getDocument();
    switch (event.getCode()) {
    case EActivityListener::LongWorkEnds:
        if (document) {
            applyAnswers(document); // an answer may have been lost in it
        }
        break;
    case EActivityListener::DocumentRestored:
        if (document) {
            takeUp(document);
        }
        break;
    case EActivityListener::DocumentClosed:
    case EActivityListener::DocumentCancelled: {
        TillDocuments documents;
        warnOfUndecided(documents);
        break;
    }
    default:
        break;
    }
}

EContext::Result DispenseRecovery::beforeSubtotal()
{
    const QSharedPointer<AbstractDocument> document = getDocument();
    const bool isReturn = document && document->getType() == AbstractDocument::Return;
    return decide(document, isReturn ? Sending::Cancellations : Sending::Registrations);
}

/// A return is cancelled without the registry.
EContext::Result DispenseRecovery::beforeCancelling()
{
    const QSharedPointer<AbstractDocument> document = getDocument();
    const bool isSale = document && document->getType() == AbstractDocument::Sale;
    return decide(document, isSale ? Sending::Cancellations : Sending::Nothing);
}

EContext::Result DispenseRecovery::beforeRemoving(const control::Action& action)
{
    const QSharedPointer<AbstractDocument> document = getDocument();
    const bool isSale = document && document->getType() == AbstractDocument::Sale;
    const auto position = isSale ? document->getPosition(action.value(u"positionNumber"_s).toInt()) : nullptr;
    return position ? decide(document, {position}, Sending::Cancellations) : EContext::GoOn;
}

EContext::Result DispenseRecovery::beforeVoiding(const control::Action& action)
{
    return decide(action.value(u"document"_s).value<QSharedPointer<AbstractDocument>>(), Sending::Cancellations);
}

void DispenseRecovery::applyAnswers(const QSharedPointer<AbstractDocument>& document) const
{
    TillDocuments documents;
    DocumentSettling(*m_registry, documents, document, m_statuses).applyAnswers();
}

EContext::Result DispenseRecovery::decide(const QSharedPointer<AbstractDocument>& document, Sending sending) const
{
    return document ? decide(document, document->getPositions(), sending) : EContext::GoOn;
}

EContext::Result DispenseRecovery::decide(const QSharedPointer<AbstractDocument>& document,
                                          const DocumentSettling::Positions& positions, Sending sending) const
{
    TillDocuments documents;
    DocumentSettling settling(*m_registry, documents, document, m_statuses);
    const bool isDecided =
        settling.decide(positions) && (sending != Sending::Cancellations || settling.decideWithoutIds(positions));
    showFindings(document, settling.findings());
    return isDecided ? EContext::GoOn : EContext::Stop;
}

/// A saved document has become the open one: what a former run of the register left is applied and decided.
void DispenseRecovery::takeUp(const QSharedPointer<AbstractDocument>& document) const
{
    TillDocuments documents;
    DocumentSettling settling(*m_registry, documents, document, m_statuses);
    settling.decide(document->getPositions());
    showFindings(document, settling.findings() + settling.missing());
    settling.forgetAnswers();
    warnOfUndecided(documents);
}

EContext::Result DispenseRecovery::reconcile()
{
    const QDate today = CurrentTime::create()->current().date();
    const Reconciliation found = Reconciliation::of(today, *m_registry, m_statuses);
    Singleton<ReportPrinter>::get()->print(recoverytexts::reconciliationTitle(), found.lines);
    Dialog::create()->showMessage({tr::undefined, found.lines.join(u'\n')},
                                  found.isWhole ? Dialog::Notice : Dialog::Error, 0, 0);
    for (const qint64 request : found.told) {
        Singleton<RequestJournal>::get()->settle(request);
    }
    m_isJournalDoubtful = m_isJournalDoubtful && !found.isWhole;
    TillDocuments documents;
    warnOfUndecided(documents);
    return EContext::GoOn;
}

void DispenseRecovery::warnOfUndecided(TillDocuments& documents) const
{
    QStringList warnings;
    if (const QStringList undecided = undecidedDocuments(documents); !undecided.isEmpty()) {
        warnings.append(recoverytexts::undecidedDocuments(undecided).ui());
    }
    if (m_isJournalDoubtful) {
        warnings.append(recoverytexts::journalDamaged().ui());
    }
    Singleton<StandingWarning>::get()->set(warnings.isEmpty() ? tr::Tr() : tr::Tr(tr::undefined, warnings.join(u' ')));
}
