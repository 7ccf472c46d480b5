// SPDX-License-Identifier: MIT
#include "registercommands.h"

#include "basicdialog.h"
#include "goodsselectionparams.h"
#include "notice.h"
#include "question.h"

using namespace Qt::StringLiterals;

namespace
{

/// Whether the cashier wants them on the document although none should be there: the pack may lie on the counter.
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
    const QVariant answer =
        core::BasicDialog().show(false, true, {EInput::Keyboard, EInput::Scanner}, params.toEvent()).getData();
    const QVariant selected = answer.toMap().value(u"result"_s);
    if (!selected.canConvert<SelectedGoods>()) {
        return std::nullopt;
    }
    return selected.value<SelectedGoods>();
}

} // namespace

EContext::Result RegisterCommands::selectGoods(control::Action& action)
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

EContext::Result RegisterCommands::addSelectedGoods(control::Action& action)
{
    const QVariant selected = action.value(u"result"_s);
    if (!selected.canConvert<SelectedGoods>()) {
        return EContext::NotFound;
    }
    const int number = m_till.add(selected.value<SelectedGoods>());
    if (number == 0) {
        return EContext::Stop;
    }
    m_picked = {};
    action.insert(u"positionNumber"_s, number);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::addGoods(control::Action& action)
{
    if (m_till.document() && m_till.document()->isReturn()) {
        showNotice({u"takeBackTakesNoGoods"_s,
                    u"Открыт возврат: товары в него не добавляются.\nЗавершите возврат или отмените его."_s});
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

std::optional<SelectedGoods> RegisterCommands::pickedBefore(const QString& medicineInfo) const
{
    const bool isPicked =
        m_picked.document && m_picked.document == m_till.document() && m_picked.medicineInfo == medicineInfo;
    return isPicked ? std::optional(m_picked.goods) : std::nullopt;
}
