// SPDX-License-Identifier: MIT
#include "sale.h"

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "currenttime.h"
#include "dialog.h"
#include "documentwatcher.h"
#include "loyaltysystemlayer.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

Sale::Sale(const QString& dataFolder, QObject* parent)
    : QObject(parent)
    , m_store(dataFolder)
    , m_numbers(dataFolder)
{
    Singleton<LoyaltySystemLayer>::get()->setRecalculation([this](AbstractDocument&) { emit changed(); });
}

Sale::~Sale()
{
    Singleton<LoyaltySystemLayer>::get()->setRecalculation({});
}

void Sale::open()
{
    if (m_receipt)
        return;
    makeCurrent(QSharedPointer<Receipt>::create(m_numbers.next(), CurrentTime::create()->current()));
    m_store.save(m_receipt);
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::ReceiptOpened));
    emit changed();
}

int Sale::add(const SelectedGoods& selected)
{
    open();
    GoodsItem::Goods goods;
    goods.name = selected.goods.name;
    goods.price = selected.goods.price;
    goods.minRetailPrice = selected.goods.minRetailPrice;
    goods.tmcPrice = selected.goods.cataloguePrice;
    goods.quantity = selected.packs;
    const int number = m_receipt->add(goods, selected.goods.barcode)->getNumber();
    recalculateAndSave();
    return number;
}

void Sale::setPacks(int positionNumber, int packs)
{
    const QSharedPointer<ReceiptPosition> position = m_receipt ? m_receipt->position(positionNumber) : nullptr;
    if (!position)
        return;
    position->setQuantity(packs);
    recalculateAndSave();
}

void Sale::remove(int positionNumber)
{
    if (!m_receipt)
        return;
    m_receipt->remove(positionNumber);
    recalculateAndSave();
}

void Sale::restore(const ReceiptStore::Loaded& loaded)
{
    if (!loaded.damage.isEmpty())
        tellDamage(loaded);
    if (!loaded.receipt)
        return;
    m_numbers.pass(loaded.receipt->getNumber());
    makeCurrent(loaded.receipt);
    Event restored(EActivityListener::DocumentRestored);
    restored.addArgument(QStringLiteral("document"),
                         QVariant::fromValue(loaded.receipt.staticCast<AbstractDocument>()));
    Singleton<ActivityNotifier>::get()->notify(restored);
    emit changed();
}

void Sale::makeCurrent(const QSharedPointer<Receipt>& receipt)
{
    m_receipt = receipt;
    DocumentWatcher::setCurrentDocument(receipt);
    Singleton<ActionQueueController>::get()->setContext(receipt ? EContext::OpenReceipt : EContext::Idle);
}

void Sale::recalculateAndSave()
{
    Singleton<LoyaltySystemLayer>::get()->recalculate(m_receipt);
    m_store.save(m_receipt);
}

void Sale::tellDamage(const ReceiptStore::Loaded& loaded) const
{
    Log4Qt::LogManager::logger(QStringLiteral("register"))
        ->error(QStringLiteral("The saved receipt is damaged: ") + loaded.damage + QStringLiteral("; set aside as ") +
                loaded.setAside);
    MockFactory<Dialog>::create()->showMessage(
        tr::Tr(QStringLiteral("savedReceiptDamaged"),
               QStringLiteral("Сохранённый чек повреждён и не восстановлен: %1\nФайл отложен: %2\n"
                              "Сообщите администратору. Можно открыть новый чек."))
            .arg(loaded.damage)
            .arg(loaded.setAside),
        Dialog::Error, 1, 0);
}
