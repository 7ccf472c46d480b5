// SPDX-License-Identifier: MIT
#include "sale.h"

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "currenttime.h"
#include "documentwatcher.h"
#include "finally.h"
#include "loyaltysystemlayer.h"

#include <utility>

Sale::Sale(const QString& dataFolder, QObject* parent)
    : QObject(parent)
    , m_store(dataFolder)
    , m_archive(dataFolder)
    , m_numbers(dataFolder)
{
    Singleton<LoyaltySystemLayer>::get()->setRecalculation([this](AbstractDocument&) { emit changed(); });
}

Sale::~Sale()
{
    Singleton<LoyaltySystemLayer>::get()->setRecalculation({});
}

void Sale::setPrinting(Printing printing)
{
    m_printing = std::move(printing);
}

void Sale::open()
{
    if (m_receipt) {
        return;
    }
    makeCurrent(QSharedPointer<Receipt>::create(m_numbers.next(), CurrentTime::create()->current()));
    m_store.save(m_receipt);
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::ReceiptOpened));
    emit changed();
}

int Sale::add(const SelectedGoods& selected)
{
    open();
    if (m_receipt->isCancelling()) {
        return 0;
    }
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
    if (!position || position->isBound()) {
        return;
    }
    position->setQuantity(packs);
    recalculateAndSave();
}

void Sale::remove(int positionNumber)
{
    if (!m_receipt) {
        return;
    }
    m_receipt->remove(positionNumber);
    recalculateAndSave();
}

void Sale::setPhase(Phase phase)
{
    if (!m_receipt || phase == m_phase) {
        return;
    }
    m_phase = phase;
    emit changed();
}

void Sale::withCurrentDocument(const QSharedPointer<AbstractDocument>& document, const std::function<void()>& work)
{
    DocumentWatcher::setCurrentDocument(document);
    const Finally back([this] { DocumentWatcher::setCurrentDocument(m_receipt); });
    work();
}

void Sale::makeCurrent(const QSharedPointer<Receipt>& receipt)
{
    m_receipt = receipt;
    m_phase = Phase::Positions;
    DocumentWatcher::setCurrentDocument(receipt);
    Singleton<ActionQueueController>::get()->setContext(receipt ? EContext::OpenReceipt : EContext::Idle);
}

void Sale::recalculateAndSave()
{
    m_phase = Phase::Positions;
    Singleton<LoyaltySystemLayer>::get()->recalculate(m_receipt);
    m_store.save(m_receipt);
}
