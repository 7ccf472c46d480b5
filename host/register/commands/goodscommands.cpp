// SPDX-License-Identifier: MIT
#include "goodscommands.h"

#include "askform.h"
#include "commandtable.h"
#include "goodsselectionparams.h"
#include "obstaclenotice.h"
#include "question.h"
#include "registeraction.h"

using namespace Qt::StringLiterals;

namespace
{

/// Asks whether to sell goods that should be out of stock: the pack may be on the counter all the same.
bool isWantedAnyway(const CatalogueGoods& goods)
{
    const Question question{
        {u"outOfStockTitle"_s, u"Товара нет на остатке"_s},
        tr::Tr(u"outOfStockQuestion"_s, u"На остатке нет товара:\n%1\nВсё равно продать?"_s).arg(goods.name),
        {u"outOfStockYes"_s, u"Продать"_s},
        {u"questionNo"_s, u"Нет"_s},
    };
    return question.ask();
}

std::optional<SelectedGoods> letSelect(const GoodsSelectionParams& params)
{
    const QVariant selected =
        askForm(GoodsSelectionParams::eventCode, params, {EInput::Keyboard, EInput::Scanner}).value(u"result"_s);
    if (!selected.canConvert<SelectedGoods>()) {
        return std::nullopt;
    }
    return selected.value<SelectedGoods>();
}

} // namespace

GoodsCommands::GoodsCommands(Till& till, const GoodsCatalogue& catalogue)
    : m_till(till)
    , m_catalogue(catalogue)
{
}

void GoodsCommands::offer(ActionQueueController& controller)
{
    using Commands = GoodsCommands;
    static constexpr Command<Commands> table[] = {
        {registeraction::addGoods, Where::Everywhere, &Commands::addGoods},
        {control::SelectGoods, Where::Everywhere, &Commands::selectGoods},
        {control::AddSelectedGoods, Where::OpenDocument, &Commands::addSelectedGoods},
    };
    offerCommands<Commands>(controller, *this, table);
}

EContext::Result GoodsCommands::selectGoods(control::Action& action)
{
    const QString medicineInfo = action.value(u"medicineInfo"_s).toString();
    const std::optional<SelectedGoods> selected = letSelect(
        {m_catalogue.goodsOf(action.value(u"filterByInn"_s).toString()), medicineInfo, {}, pickedBefore(medicineInfo)});
    if (!selected) {
        return EContext::Stop;
    }
    m_picked = {m_till.document(), medicineInfo, *selected};
    action.insert(u"result"_s, QVariant::fromValue(*selected));
    return EContext::GoOn;
}

EContext::Result GoodsCommands::addSelectedGoods(control::Action& action)
{
    const QVariant selected = action.value(u"result"_s);
    if (!selected.canConvert<SelectedGoods>()) {
        return EContext::NotFound;
    }
    if (showIfObstacle(m_till.obstacleToChangingDocument())) {
        return EContext::Stop;
    }
    const int number = m_till.add(selected.value<SelectedGoods>());
    if (number == 0) {
        return EContext::Stop;
    }
    m_picked = {};
    action.insert(u"positionNumber"_s, number);
    return EContext::GoOn;
}

EContext::Result GoodsCommands::addGoods(control::Action& action)
{
    if (showIfObstacle(m_till.obstacleToAddingGoods())) {
        return EContext::Stop;
    }
    const QString search = action.value(u"search"_s).toString().trimmed();
    std::optional<SelectedGoods> selected;
    if (!search.isEmpty()) {
        if (const std::optional<CatalogueGoods> scanned = m_catalogue.byBarcode(search)) {
            selected = SelectedGoods{*scanned, 1};
        }
    }
    if (selected && !selected->goods.isInStock() && !isWantedAnyway(selected->goods)) {
        return EContext::Stop;
    }
    if (!selected) {
        selected = letSelect({m_catalogue.goodsOf({}), {}, search, {}});
    }
    if (!selected) {
        return EContext::Stop;
    }
    m_till.add(*selected);
    return EContext::GoOn;
}

std::optional<SelectedGoods> GoodsCommands::pickedBefore(const QString& medicineInfo) const
{
    const bool isPicked =
        m_picked.document && m_picked.document == m_till.document() && m_picked.medicineInfo == medicineInfo;
    return isPicked ? std::optional(m_picked.goods) : std::nullopt;
}
