// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "actionhandler.h"
#include "actiontrigger.h"
#include "activitynotifier.h"
#include "config.h"
#include "electronicprescriptionchoiceparams.h"
#include "electronicprescriptionconfirmdispenseparams.h"
#include "electronicprescriptionformcreator.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionparams.h"
#include "electronicprescriptionservice.h"
#include "graphicaluserinterface.h"
#include "registryuris.h"
#include "singleton.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

namespace
{

using Service = ElectronicPrescriptionService;

/// A hook before one of the register's actions. The smaller priority runs first.
struct Hook {
    EContext::Code context;
    control::EActionType action;
    EContext::Result (Service::*run)(const control::Action&);
    int priority;
};

constexpr Hook hooks[] = {
    {EContext::Idle, control::VoidDocument, &Service::cancelElectronicPrescriptions, 3},
    {EContext::OpenDocument, control::VoidDocument, &Service::cancelElectronicPrescriptions, 3},
    {EContext::StoredDocuments, control::VoidDocument, &Service::cancelElectronicPrescriptions, 3},

    {EContext::OpenDocument, control::Subtotal, &Service::beforeSubtotal, 3},
    {EContext::OpenDocument, control::SubtotalAndPayment, &Service::beforeSubtotal, 3},

    {EContext::OpenDocument, control::RemovePosition, &Service::cancelElectronicPrescriptionByAction, 3},
    {EContext::OpenDocument, control::CancelDocument, &Service::beforeStornoAll, 2},
    {EContext::OpenDocument, control::CancelDocumentFromMenu, &Service::beforeStornoAll, 2},
};

} // namespace

ElectronicPrescriptionService::ElectronicPrescriptionService()
    : registryClient(new ElectronicPrescriptionInterface)
    , logger(Log4Qt::LogManager::logger(u"electronicPrescription"_s))
{
    // With the type of shared pointers to documents, Qt registers their conversion to QObject*.
    qRegisterMetaType<QSharedPointer<AbstractDocument>>();
    // The dialogs' records can be found by name as soon as the plug-in is loaded, before one is put into a QVariant.
    qRegisterMetaType<ElectronicPrescriptionChoiceParams>();
    qRegisterMetaType<ElectronicPrescriptionParams>();
    qRegisterMetaType<ElectronicPrescriptionConfirmDispenseParams>();
}

ElectronicPrescriptionService::~ElectronicPrescriptionService() = default;

bool ElectronicPrescriptionService::init()
{
    const Config* const config = Singleton<Config>::get();
    if (!config->getBool(u"plugins:pharmacy"_s, false)) {
        logger->error(u"Не подключен плагин 'pharmacy'"_s);
        return false;
    }
    dosageSystemId = config->getString(u"ElectronicPrescription:dosageSystemId"_s, registryuris::dosageDictionary);

    addHandler({EContext::OpenDocument, control::PluginCommand,
                [this](const control::Action& action) { return processElectronicPrescriptionsByAction(action); },
                true});
    for (const Hook& hook : hooks) {
        const auto run = hook.run;
        addTrigger({hook.context, hook.action, ActionTrigger::Before,
                    [this, run](const control::Action& action) { return (this->*run)(action); }, ActionTrigger::Any,
                    hook.priority});
    }
    Singleton<ActivityNotifier>::get()->subscribe(this);
    Singleton<GraphicalUserInterface>::get()->addFormCreator(
        QSharedPointer<ElectronicPrescriptionFormCreator>(new ElectronicPrescriptionFormCreator));

    logger->info(u"Инициализация выполнена"_s);
    return true;
}

void ElectronicPrescriptionService::handleEvent(const Event& event)
{
    switch (event.getCode()) {
    case EActivityListener::DocumentOpened:
    case EActivityListener::DocumentClosed:
    case EActivityListener::DocumentCancelled:
        clear();
        break;
    case EActivityListener::DocumentRestored:
        takeOver(event.value(u"document"_s, QVariant()).value<QSharedPointer<AbstractDocument>>());
        break;
    default:
        break;
    }
}

void ElectronicPrescriptionService::takeOver(const QSharedPointer<AbstractDocument>& document)
{
    // What was looked up for the receipt before may be older than a dispense that it registered since.
    patientCache.clear();
    prescriptionCache.clear();
    lastCardNumber =
        document ? document->getPluginValue(QLatin1StringView(metaObject()->className()), cardNumberKey, QVariant())
                       .toString()
                 : QString();
}

void ElectronicPrescriptionService::sendStartEvent(const tr::Tr& message) const
{
    Event event(EActivityListener::LongWorkBegins);
    event.addArgument(u"message"_s, QVariant::fromValue(message));
    Singleton<ActivityNotifier>::get()->notify(event);
}

void ElectronicPrescriptionService::sendStopEvent() const
{
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::LongWorkEnds));
}

void ElectronicPrescriptionService::clear()
{
    patientCache.clear();
    prescriptionCache.clear();
    lastCardNumber = QString();
}
