// SPDX-License-Identifier: MIT
#include "till.h"

#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "currenttime.h"
#include "documentwatcher.h"
#include "finally.h"
#include "keyofgoods.h"
#include "tillarchive.h"

#include <algorithm>
#include <utility>

namespace
{

/// The register's layer of totals while it exists: a recalculated document is one that the screens show again.
class Totals : public LoyaltySystemLayer
{
public:
    explicit Totals(Till& till)
        : m_till(till)
    {
        Singleton<LoyaltySystemLayer>::instance = this;
    }
    ~Totals() override { Singleton<LoyaltySystemLayer>::instance = m_former; }
    Q_DISABLE_COPY_MOVE(Totals)

    void recalculate(const QSharedPointer<AbstractDocument>& document) override
    {
        if (document) {
            emit m_till.changed();
        }
    }

private:
    Till& m_till;
    LoyaltySystemLayer* const m_former = Singleton<LoyaltySystemLayer>::instance;
};

/// Keeps the plug-ins that a position waits for with it, so that they are known when one of them is gone.
class UndecidedPlugins : public BeforeSaving
{
public:
    explicit UndecidedPlugins(const Till& till)
        : m_till(till)
    {
        Singleton<BeforeSaving>::instance = this;
    }
    ~UndecidedPlugins() override
    {
        if (Singleton<BeforeSaving>::instance == this) { // not of a till that was made meanwhile
            Singleton<BeforeSaving>::instance = nullptr;
        }
    }
    Q_DISABLE_COPY_MOVE(UndecidedPlugins)

    void complete(AbstractDocument& saved) override
    {
        if (const auto* document = qobject_cast<const Document*>(&saved)) {
            for (const QSharedPointer<Position>& position : document->positions()) {
                position->noteUndecidedPlugins(m_till.marks().undecidedPlugins(*position));
            }
        }
    }

private:
    const Till& m_till;
};

const PositionMarks& noMarks()
{
    static const PositionMarks marks;
    return marks;
}

} // namespace

Till::Till(const QString& dataFolder, QObject* parent)
    : QObject(parent)
    , m_store(dataFolder)
    , m_archive(dataFolder)
    , m_unsettled(dataFolder)
    , m_marks(&noMarks())
    , m_numbers(dataFolder)
    , m_totals(std::make_unique<Totals>(*this))
    , m_beforeSaving(std::make_unique<UndecidedPlugins>(*this))
    , m_documentsForPlugins(std::make_unique<TillArchive>(*this))
{
}

Till::~Till() = default;

void Till::setPrinting(Printing printing)
{
    m_printing = std::move(printing);
}

void Till::setActivePlugins(ActivePlugins plugins)
{
    m_activePlugins = std::move(plugins);
}

void Till::open()
{
    if (m_document) {
        return;
    }
    makeCurrent(QSharedPointer<Document>::create(m_numbers.next(), CurrentTime::create()->current()));
    m_store.saveOrShow(m_document);
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentOpened));
    emit changed();
}

int Till::add(const SelectedGoods& selected)
{
    if (selected.goods.obstacleToSelling()) {
        return 0;
    }
    open();
    if (obstacleToAddingGoods()) {
        return 0;
    }
    GoodsItem::Goods goods;
    goods.name = selected.goods.name;
    goods.price = *selected.goods.price;
    goods.minRetailPrice = *selected.goods.minRetailPrice;
    goods.tmcPrice = *selected.goods.cataloguePrice;
    goods.quantity = selected.packs;
    const int number = m_document->add(goods, selected.goods.barcode, selected.goods.code)->getNumber();
    recalculateAndSave();
    return number;
}

int Till::addOrRaise(const SelectedGoods& selected)
{
    const QSharedPointer<Position> position = positionToRaise(selected);
    if (!position) {
        return add(selected);
    }
    setPacks(position->getNumber(), position->getQuantity() + selected.packs);
    emit positionRaised(position->getNumber());
    return position->getNumber();
}

void Till::setPacks(int positionNumber, double packs)
{
    const QSharedPointer<Position> position = m_document ? m_document->position(positionNumber) : nullptr;
    if (!position || obstacleToChangingPositions() || obstacleToChangingQuantity(*position)) {
        return;
    }
    position->setQuantity(packs);
    recalculateAndSave();
}

void Till::remove(int positionNumber)
{
    const QSharedPointer<Position> position = m_document ? m_document->position(positionNumber) : nullptr;
    if (!position || obstacleToChangingPositions() || obstacleOfPlugin(*position)) {
        return;
    }
    m_document->remove(positionNumber);
    recalculateAndSave();
}

void Till::save() const
{
    if (m_document) {
        m_store.saveOrShow(m_document);
    }
}

void Till::setPhase(Phase phase)
{
    if (!m_document || phase == m_phase || (phase != Phase::Positions && obstacleToPayment())) {
        return;
    }
    m_phase = phase;
    emit changed();
}

void Till::withCurrentDocument(const QSharedPointer<AbstractDocument>& document, const std::function<void()>& work)
{
    DocumentWatcher::setCurrentDocument(document);
    const Finally back([this] { DocumentWatcher::setCurrentDocument(m_document); });
    work();
}

void Till::makeCurrent(const QSharedPointer<Document>& document)
{
    m_document = document;
    m_phase = Phase::Positions;
    DocumentWatcher::setCurrentDocument(document);
    Singleton<ActionQueueController>::get()->host().setContext(document ? EContext::OpenDocument : EContext::Idle);
}

QSharedPointer<Position> Till::positionToRaise(const SelectedGoods& selected) const
{
    if (!m_document || obstacleToAddingGoods() || selected.goods.obstacleToSelling()) {
        return nullptr;
    }
    const auto& positions = m_document->positions();
    const auto found = std::find_if(positions.cbegin(), positions.cend(), [this, &selected](const auto& position) {
        return position->goodsKey().isSame(keyOf(selected.goods)) && position->price() == *selected.goods.price &&
               !obstacleToChangingQuantity(*position) &&
               position->getQuantity() + selected.packs <= GoodsItem::greatestQuantity;
    });
    return found == positions.cend() ? nullptr : *found;
}

void Till::recalculateAndSave()
{
    m_phase = Phase::Positions;
    Singleton<LoyaltySystemLayer>::get()->recalculate(m_document);
    m_store.saveOrShow(m_document);
}
