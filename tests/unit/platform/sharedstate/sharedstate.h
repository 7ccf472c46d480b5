// SPDX-License-Identifier: MIT
#pragma once

#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "cardterminals.h"
#include "config.h"
#include "connectionfactory.h"
#include "currenttime.h"
#include "dialog.h"
#include "documentarchive.h"
#include "graphicaluserinterface.h"
#include "loyaltysystemlayer.h"
#include "reportprinter.h"
#include "requestjournal.h"
#include "restclient.h"
#include "savetofilelogic.h"
#include "standingwarning.h"

#include <QMap>
#include <QString>
#include <QtPlugin>

using namespace Qt::StringLiterals;

/// The addresses of the singletons and factories, as seen by the library that compiles this.
inline QMap<QString, const void*> sharedStateSeenHere()
{
    return {
        {u"ActionFactory"_s, &Singleton<control::ActionFactory>::instance},
        {u"ActionQueueController"_s, &Singleton<ActionQueueController>::instance},
        {u"ActivityNotifier"_s, &Singleton<ActivityNotifier>::instance},
        {u"CardTerminals"_s, &Singleton<CardTerminals>::instance},
        {u"Config"_s, &Singleton<Config>::instance},
        {u"ConnectionFactory"_s, &Singleton<ConnectionFactory>::instance},
        {u"DocumentArchive"_s, &Singleton<DocumentArchive>::instance},
        {u"GraphicalUserInterface"_s, &Singleton<GraphicalUserInterface>::instance},
        {u"LoyaltySystemLayer"_s, &Singleton<LoyaltySystemLayer>::instance},
        {u"ReportPrinter"_s, &Singleton<ReportPrinter>::instance},
        {u"RequestJournal"_s, &Singleton<RequestJournal>::instance},
        {u"StandingWarning"_s, &Singleton<StandingWarning>::instance},

        {u"CurrentTime"_s, &MockFactory<CurrentTime>::mocked},
        {u"Dialog"_s, &MockFactory<Dialog>::mocked},
        {u"RestClient"_s, &MockFactory<RestClient>::mocked},
        {u"SaveToFileLogic"_s, &MockFactory<SaveToFileLogic>::mocked},
    };
}

/// A module of its own that reports what it sees of the platform.
class SharedStateProbe
{
public:
    virtual ~SharedStateProbe() = default;
    virtual QMap<QString, const void*> sharedState() const = 0;
    /// What the platform's own code uses, called from the module.
    virtual QString configured(const QString& key) const = 0;
    virtual QDateTime now() const = 0;
    virtual QSharedPointer<AbstractDocument> currentDocument() const = 0;
    [[noreturn]] virtual void throwBasicException(const tr::Tr& message) const = 0;
};

#define SharedStateProbe_iid "example.register.SharedStateProbe"
Q_DECLARE_INTERFACE(SharedStateProbe, SharedStateProbe_iid)
