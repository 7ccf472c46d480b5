// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "configured.h"
#include "connectionfactory.h"
#include "demodata.h"
#include "documentarchive.h"
#include "documentwatcher.h"
#include "goodscatalogue.h"
#include "goodscommands.h"
#include "graphicaluserinterface.h"
#include "inplace.h"
#include "keycommands.h"
#include "loyaltysystemlayer.h"
#include "menucommands.h"
#include "opendocumentcommands.h"
#include "paymentcommands.h"
#include "registerformcreator.h"
#include "till.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

/// Records what a plug-in sees: the events, and the current document and the context at each.
class Witness : public BaseActivityListener, private DocumentWatcher
{
public:
    struct Seen {
        int code;
        QSharedPointer<AbstractDocument> current;
        EContext::Code context;
        QVariant document;
        QVariant seconds;
    };

    void handleEvent(const Event& event) override
    {
        seen.append({event.getCode(), getDocument(), Singleton<ActionQueueController>::get()->context(),
                     event.value(u"document"_s), event.value(u"seconds"_s)});
    }
    QList<int> codes() const
    {
        QList<int> all;
        for (const Seen& one : seen) {
            all.append(one.code);
        }
        return all;
    }

    QList<Seen> seen;
};

/// A register without its window: data folder, demo goods, till and commands.
class TillFixture : public ::testing::Test
{
protected:
    TillFixture()
    {
        EXPECT_TRUE(folder.isValid());
        config.set(u"Register:data"_s, folder.path());
        config.set(u"Register:currency"_s, {}); // messages name bare amounts
        config.set(u"Database:name"_s, folder.filePath(u"goods.sqlite"_s));
        EXPECT_TRUE(createDemoGoods(folder.filePath(u"goods.sqlite"_s)));
        gui.object.addFormCreator(QSharedPointer<RegisterFormCreator>::create());
        notifier.object.subscribe(&witness);
        till = std::make_unique<Till>(folder.path());
        till->setActivePlugins([this] { return activePlugins; });
        openDocumentCommands = std::make_unique<OpenDocumentCommands>(*till);
        openDocumentCommands->offer(controller.object);
        goodsCommands = std::make_unique<GoodsCommands>(*till, catalogue);
        goodsCommands->offer(controller.object);
        paymentCommands = std::make_unique<PaymentCommands>(*till);
        paymentCommands->offer(controller.object);
        keyCommands = std::make_unique<KeyCommands>(*till);
        keyCommands->offer(controller.object);
        menuCommands = std::make_unique<MenuCommands>(*till, QList<FunctionKey>());
        menuCommands->offer(controller.object);
    }
    ~TillFixture() override { DocumentWatcher::setCurrentDocument(nullptr); }

    /// Packs of the demo goods with that barcode.
    SelectedGoods article(const QString& barcode, int packs = 1) const
    {
        return {catalogue.byBarcode(barcode).value(), packs};
    }
    QJsonObject savedDocument() const
    {
        QFile file(folder.filePath(u"receipt.json"_s));
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }

    const QString amoxidar = u"2990000000019"_s;
    QTemporaryDir folder;
    Configured config;
    Own<ActionQueueController> controller;
    Own<ActivityNotifier> notifier;
    Own<ConnectionFactory> connections;
    Own<GraphicalUserInterface> gui;
    Own<LoyaltySystemLayer> loyalty;
    Own<DocumentArchive> documentArchive; ///< what plug-ins find without a till
    Witness witness;
    QStringList activePlugins{u"testplugin"_s}; ///< the plug-ins that work
    GoodsCatalogue catalogue;
    std::unique_ptr<Till> till;
    std::unique_ptr<OpenDocumentCommands> openDocumentCommands;
    std::unique_ptr<GoodsCommands> goodsCommands;
    std::unique_ptr<PaymentCommands> paymentCommands;
    std::unique_ptr<KeyCommands> keyCommands;
    std::unique_ptr<MenuCommands> menuCommands;
};
