// SPDX-License-Identifier: MIT
#include "registercommands.h"

#include "basicdialog.h"
#include "goodsselectionparams.h"
#include "notice.h"
#include "question.h"

namespace
{

/// Whether the cashier wants them on the receipt although none should be there: the pack may lie on the counter.
bool isWantedAnyway(const CatalogueGoods& goods)
{
    const Question question{
        {QStringLiteral("outOfStockTitle"), QStringLiteral("Товара нет на остатке")},
        tr::Tr(QStringLiteral("outOfStockQuestion"), QStringLiteral("На остатке нет товара:\n%1\nВсё равно продать?"))
            .arg(goods.name),
        {QStringLiteral("outOfStockYes"), QStringLiteral("Продать")},
        {QStringLiteral("questionNo"), QStringLiteral("Нет")},
    };
    return question.ask();
}

std::optional<SelectedGoods> letSelect(const GoodsSelectionParams& params)
{
    const QVariant answer =
        core::BasicDialog().show(false, true, {EInput::Keyboard, EInput::Scanner}, params.toEvent()).getData();
    const QVariant selected = answer.toMap().value(QStringLiteral("result"));
    if (!selected.canConvert<SelectedGoods>())
        return std::nullopt;
    return selected.value<SelectedGoods>();
}

} // namespace

EContext::Result RegisterCommands::selectGoods(control::Action& action)
{
    const QString medicineInfo = action.value(QStringLiteral("medicineInfo")).toString();
    const std::optional<SelectedGoods> selected =
        letSelect({m_catalogue.goodsOf(action.value(QStringLiteral("filterByInn")).toString()),
                   medicineInfo,
                   {},
                   pickedBefore(medicineInfo)});
    if (!selected)
        return EContext::Stop;
    m_picked = {m_sale.receipt(), medicineInfo, *selected};
    action.insert(QStringLiteral("result"), QVariant::fromValue(*selected));
    return EContext::GoOn;
}

EContext::Result RegisterCommands::addSelectedGoods(control::Action& action)
{
    const QVariant selected = action.value(QStringLiteral("result"));
    if (!selected.canConvert<SelectedGoods>())
        return EContext::NotFound;
    const int number = m_sale.add(selected.value<SelectedGoods>());
    if (number == 0)
        return EContext::Stop;
    m_picked = {};
    action.insert(QStringLiteral("positionNumber"), number);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::addGoods(control::Action& action)
{
    if (m_sale.receipt() && m_sale.receipt()->isCancelling()) {
        showNotice(
            {QStringLiteral("takeBackTakesNoGoods"),
             QStringLiteral("Открыт возврат: товары в него не добавляются.\nЗавершите возврат или отмените его.")});
        return EContext::Stop;
    }
    const QString search = action.value(QStringLiteral("search")).toString().trimmed();
    std::optional<SelectedGoods> selected;
    if (!search.isEmpty())
        if (const std::optional<CatalogueGoods> scanned = m_catalogue.byBarcode(search))
            selected = SelectedGoods{*scanned, 1};
    if (selected && !selected->goods.isInStock() && !isWantedAnyway(selected->goods))
        return EContext::Stop;
    if (!selected)
        selected = letSelect({m_catalogue.goodsOf({}), {}, search, {}});
    if (!selected)
        return EContext::Stop;
    m_sale.add(*selected);
    return EContext::GoOn;
}

std::optional<SelectedGoods> RegisterCommands::pickedBefore(const QString& medicineInfo) const
{
    const bool isPicked =
        m_picked.receipt && m_picked.receipt == m_sale.receipt() && m_picked.medicineInfo == medicineInfo;
    return isPicked ? std::optional(m_picked.goods) : std::nullopt;
}
