// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "actionhandler.h"
#include "actiontrigger.h"
#include "activitynotifier.h"
#include "config.h"
#include "electronicprescriptionformcreator.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionservice.h"
#include "graphicaluserinterface.h"
#include "registryuris.h"
#include "singleton.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

namespace
{

using Service = ElectronicPrescriptionService;

/// A hook before one of the register's actions. All of them run whatever the action will return.
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
    , logger(Log4Qt::LogManager::logger("electronicPrescription"))
{
    // Documents travel in events and actions as shared pointers; with the type, Qt registers its conversion to
    // QObject*.
    qRegisterMetaType<QSharedPointer<AbstractDocument>>();
}

ElectronicPrescriptionService::~ElectronicPrescriptionService() = default;

bool ElectronicPrescriptionService::init()
{
    const Config* const config = Singleton<Config>::get();
    if (!config->getBool("plugins:pharmacy", false)) {
        logger->error("Не подключен плагин 'pharmacy'");
        return false;
    }
    dosageSystemId = config->getString("ElectronicPrescription:dosageSystemId", registryuris::dosageDictionary);

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

    logger->info("Инициализация выполнена");
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
    case EActivityListener::DocumentRestored: {
        const auto document = event.value("document", QVariant()).value<QSharedPointer<AbstractDocument>>();
        lastCardNumber = document
                             ? document->getPluginValue(metaObject()->className(), cardNumberKey, QVariant()).toString()
                             : QString();
        break;
    }
    default:
        break;
    }
}

void ElectronicPrescriptionService::sendStartEvent(const tr::Tr& message) const
{
    Event event(EActivityListener::LongWorkBegins);
    event.addArgument("message", QVariant::fromValue(message));
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
