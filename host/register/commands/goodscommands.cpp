// SPDX-License-Identifier: MIT
#include "goodscommands.h"

#include "askform.h"
#include "basicexception.h"
#include "chosenposition.h"
#include "commandtable.h"
#include "goodsselectionparams.h"
#include "keyofgoods.h"
#include "obstaclenotice.h"
#include "packsquestion.h"
#include "registeraction.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

namespace
{

std::optional<SelectedGoods> letSelect(const GoodsSelectionParams& params)
{
    const QVariant selected =
        askForm(GoodsSelectionParams::eventCode, params, {EInput::Keyboard, EInput::Scanner}).value(u"result"_s);
    if (!selected.canConvert<SelectedGoods>()) {
        return std::nullopt;
    }
    return selected.value<SelectedGoods>();
}

/// What `select` returns. A cashier who stops the reading of the goods gets a notice, which is no error.
std::optional<SelectedGoods> unlessStopped(const std::function<std::optional<SelectedGoods>()>& select)
{
    try {
        return select();
    } catch (const GoodsReadingStopped& stopped) {
        showNotice(stopped.tr());
        return std::nullopt;
    }
}

/// The packs that a position is to have, as the cashier types them.
std::optional<int> askPacks(const Position& position)
{
    TextInputParams params;
    params.title = tr::Tr(u"changeQuantityTitle"_s, u"Количество"_s);
    params.message = tr::Tr(u"changeQuantityMessage"_s, u"Сколько упаковок?\n%1"_s).arg(position.getName());
    params.inputName = u"inputPacks"_s;
    params.initialText = QString::number(position.getQuantity());
    params.mask = u"[1-9]\\d{0,2}"_s;
    params.numeric = true;
    params.manualOnly = true;
    const core::BasicDialog::Result result = Dialog::create()->showTextInput(params);
    const int packs = result.getData().toString().toInt();
    return result.canceled() || packs < 1 ? std::nullopt : std::optional(packs);
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
        {registeraction::changeQuantity, Where::OpenDocument, &Commands::changeQuantity},
    };
    offerCommands<Commands>(controller, *this, table);
}

EContext::Result GoodsCommands::selectGoods(control::Action& action)
{
    const QString medicineInfo = action.value(u"medicineInfo"_s).toString();
    const QString wantedName = action.value(u"filterByInn"_s).toString().trimmed();
    const auto all = [this] { return m_catalogue.goodsOf({}); };
    const std::optional<SelectedGoods> selected = unlessStopped([&] {
        return letSelect(
            {m_catalogue.goodsOf(wantedName), medicineInfo, {}, pickedBefore(medicineInfo), wantedName, all});
    });
    if (!selected || !maySell(*selected)) {
        return EContext::Stop;
    }
    m_picked = {m_till.document(), medicineInfo, *selected};
    action.insert(u"result"_s, QVariant::fromValue(*selected));
    return EContext::GoOn;
}

EContext::Result GoodsCommands::addSelectedGoods(control::Action& action)
{
    const QVariant value = action.value(u"result"_s);
    if (!value.canConvert<SelectedGoods>()) {
        return EContext::NotFound;
    }
    const auto selected = value.value<SelectedGoods>();
    const QSharedPointer<Document> document = m_till.document();
    if (showIfObstacle(m_till.obstacleToChangingDocument()) || showIfObstacle(m_till.obstacleToAddingGoods()) ||
        (!isPicked(selected) && !maySell(selected)) || showIfObstacle(m_till.obstacleToGoingOn(document)) ||
        showIfObstacle(m_till.obstacleToAddingGoods())) {
        return EContext::Stop;
    }
    const int number = m_till.add(selected);
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
    const QSharedPointer<Document> document = m_till.document();
    const QString search = action.value(u"search"_s).toString().trimmed();
    const std::optional<SelectedGoods> selected = unlessStopped([&] { return find(search); });
    if (!selected || !maySell(*selected) || showIfObstacle(m_till.obstacleToGoingOn(document)) ||
        showIfObstacle(m_till.obstacleToAddingGoods())) {
        return EContext::Stop;
    }
    m_till.addOrRaise(*selected);
    return EContext::GoOn;
}

EContext::Result GoodsCommands::changeQuantity(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPositionOrShow(m_till, action);
    if (!position || showIfObstacle(m_till.obstacleToChangingQuantity(*position))) {
        return EContext::Stop;
    }
    const std::optional<int> packs = askPacks(*position);
    if (!packs || !isStillThere(m_till, position) || !maySet(*position, *packs) || !isStillThere(m_till, position)) {
        return EContext::Stop;
    }
    m_till.setPacks(position->getNumber(), *packs);
    return EContext::GoOn;
}

/// The goods with the bar code `search`; the cashier chooses when there are several, or none.
std::optional<SelectedGoods> GoodsCommands::find(const QString& search) const
{
    if (search.isEmpty()) {
        return letSelect({m_catalogue.goodsOf({}), {}, {}, {}});
    }
    const auto scanned = m_catalogue.withBarcode(search);
    if (scanned.isEmpty()) {
        return letSelect({m_catalogue.goodsOf({}), {}, search, {}});
    }
    if (scanned.size() == 1) {
        return SelectedGoods{scanned.at(0), 1};
    }
    const tr::Tr several(u"barcodeOfSeveralGoods"_s, u"Штрихкод %1 есть у нескольких товаров. Выберите нужный."_s);
    return letSelect({scanned, several.arg(search).ui(), {}, {}});
}

bool GoodsCommands::maySell(const SelectedGoods& selected) const
{
    if (const std::optional<tr::Tr> obstacle = selected.goods.obstacleToSelling()) {
        showNotice(*obstacle);
        return false;
    }
    const QSharedPointer<Document> document = m_till.document();
    const double before = document ? document->packsOf(keyOf(selected.goods)) : 0.0;
    return AddedPacks{.name = selected.goods.name,
                      .stock = selected.goods.stock,
                      .before = before,
                      .after = before + selected.packs,
                      .entered = selected.packs}
        .areWanted();
}

bool GoodsCommands::maySet(const Position& position, int packs) const
{
    const double before = m_till.document()->packsOf(position.goodsKey());
    return AddedPacks{.name = position.getName(),
                      .stock = stockOf(position.goodsKey()),
                      .before = before,
                      .after = before - position.getQuantity() + packs,
                      .entered = packs}
        .areWanted();
}

/// Empty when it is unknown: the goods are no longer in the catalogue, or it cannot be read, which is no reason to
/// refuse another quantity.
std::optional<int> GoodsCommands::stockOf(const GoodsKey& key) const
{
    try {
        const auto found = key.barcode.isEmpty() ? m_catalogue.goodsOf({}) : m_catalogue.withBarcode(key.barcode);
        for (const CatalogueGoods& goods : found) {
            if (keyOf(goods).isSame(key)) {
                return goods.stock;
            }
        }
    } catch (const BasicException& exception) {
        Log4Qt::LogManager::logger(u"register"_s)->warn(u"The stock is unknown: "_s + exception.tr().key());
    }
    return std::nullopt;
}

/// The cashier was asked about goods that are picked.
bool GoodsCommands::isPicked(const SelectedGoods& selected) const
{
    return m_picked.document && m_picked.document == m_till.document() && m_picked.goods.packs == selected.packs &&
           keyOf(m_picked.goods.goods).isSame(keyOf(selected.goods));
}

std::optional<SelectedGoods> GoodsCommands::pickedBefore(const QString& medicineInfo) const
{
    const bool isPicked =
        m_picked.document && m_picked.document == m_till.document() && m_picked.medicineInfo == medicineInfo;
    return isPicked ? std::optional(m_picked.goods) : std::nullopt;
}
