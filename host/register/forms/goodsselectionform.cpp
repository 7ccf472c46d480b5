// SPDX-License-Identifier: MIT
#include "goodsselectionform.h"

#include "basicexception.h"
#include "config.h"
#include "dialogeventfilter.h"
#include "formanswer.h"
#include "formkeys.h"
#include "keyofgoods.h"
#include "registerstyle.h"
#include "scanfilter.h"
#include "shownkey.h"
#include "tablecolumn.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
constexpr int maxPacks = 999;
/// The width of the search text in a hint, in pixels.
constexpr int longestQuote = 240;
} // namespace

GoodsSelectionForm::GoodsSelectionForm(const GoodsSelectionParams& params, QObject* parent)
    : BasicForm(parent)
    , m_goods(params.goods)
    , m_allGoods(params.allGoods)
    , m_wantedName(params.wantedName)
{
    loadUI(u"goodsselection.ui"_s);
    if (!isTouchMode()) {
        deleteWidgets(
            {u"quantityMinusButton"_s, u"quantityPlusButton"_s, u"scrollButtonsNavigationBar"_s, u"navigationBar"_s});
    }
    m_table = findWidget<TalloTableView>(u"goodsTable"_s);
    m_filter = findWidget<TalloLineEdit>(u"filterLineEdit"_s);
    m_packs = findWidget<TalloLineEdit>(u"quantityLineEdit"_s);
    m_hint = findWidget<QLabel>(u"hintLabel"_s);

    showText(u"titleLabel"_s, tr::Tr(u"goodsSelectionTitle"_s, u"Подбор товара"_s).ui());
    showText(u"medicineInfoLabel"_s, params.medicineInfo);
    findWidget<QLabel>(u"medicineInfoLabel"_s)->setVisible(!params.medicineInfo.isEmpty());

    setUpTable();
    setUpPacks();
    setUpButtons();
    nameControls();

    auto* keys = new DialogEventFilter(this);
    keys->setTableView(m_table);
    keys->setLineEdit(m_filter);
    connect(keys, &DialogEventFilter::ok, this, &GoodsSelectionForm::onChoose);
    connect(keys, &DialogEventFilter::cancel, this, &GoodsSelectionForm::onCancel);
    rootWidget()->installEventFilter(keys);

    connect(m_filter, &QLineEdit::textChanged, this, &GoodsSelectionForm::onFilterChanged);
    m_filter->setText(params.filter);
    onFilterChanged(params.filter);
    if (params.picked) {
        offerAgain(*params.picked, params.medicineInfo);
    } else if (params.filter.isEmpty()) {
        offerWanted(params.medicineInfo);
    }
}

void GoodsSelectionForm::offerAgain(const SelectedGoods& picked, const QString& medicineInfo)
{
    if (offerPicked(picked)) {
        return;
    }
    if (!m_wantedName.isEmpty() && !offerAllOrShow()) {
        m_table->setCurrentIndex({}); // other goods must not be taken by the next Return
        return;
    }
    if (!offerPicked(picked)) {
        offerWanted(medicineInfo);
    }
}

bool GoodsSelectionForm::offerPicked(const SelectedGoods& picked)
{
    for (int row = 0; row < m_goods.rowCount(); ++row) {
        if (!keyOf(m_goods.goods(row)).isSame(keyOf(picked.goods))) {
            continue;
        }
        makeCurrent(row);
        m_packs->setText(QString::number(picked.packs));
        return true;
    }
    return false;
}

/// Makes the goods in stock current whose trade name is a part of `medicineInfo`. The parts are separated by slashes;
/// the name of goods begins with the trade name and a comma.
void GoodsSelectionForm::offerWanted(const QString& medicineInfo)
{
    for (const QString& part : medicineInfo.split(u'/', Qt::SkipEmptyParts)) {
        for (int row = 0; row < m_goods.rowCount(); ++row) {
            const CatalogueGoods& goods = m_goods.goods(row);
            const QString tradeName = goods.name.section(u',', 0, 0).trimmed();
            if (goods.isInStock() && tradeName.compare(part.trimmed(), Qt::CaseInsensitive) == 0) {
                makeCurrent(row);
                return;
            }
        }
    }
}

void GoodsSelectionForm::makeCurrent(int row)
{
    m_table->setCurrentIndex(m_goods.index(row, GoodsTableModel::Name));
}

void GoodsSelectionForm::setUpTable()
{
    m_table->setModel(&m_goods);
    m_table->setColumns(TableColumn::texts({
        {u"name"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"nonProprietaryName"_s, 220, TableColumn::left},
        {u"price"_s, TableColumn::fittingMoney, TableColumn::right},
        {u"stock"_s, TableColumn::fittingContents, TableColumn::right},
    }));
}

void GoodsSelectionForm::setUpPacks()
{
    m_packs->setText(u"1"_s);
    connect(new ScanFilter(*m_packs), &ScanFilter::scanned, this, &GoodsSelectionForm::searchScanned);
    findWidget<QLabel>(u"quantityLabel"_s)->setText(tr::Tr(u"goodsSelectionPacks"_s, u"Упаковок:"_s).ui());
    if (auto* fewer = findWidget<QPushButton>(u"quantityMinusButton"_s, false)) {
        connect(fewer, &QPushButton::clicked, this, [this] { onAmountButton(-1); });
    }
    if (auto* more = findWidget<QPushButton>(u"quantityPlusButton"_s, false)) {
        connect(more, &QPushButton::clicked, this, [this] { onAmountButton(+1); });
    }
}

void GoodsSelectionForm::setUpButtons()
{
    auto* choose = findWidget<QPushButton>(u"okButton"_s);
    choose->setText(tr::Tr(u"goodsSelectionOk"_s, u"Выбрать"_s).ui());
    choose->setAccessibleName(choose->text());
    connect(choose, &QPushButton::clicked, this, &GoodsSelectionForm::onChoose);
    auto* cancel = findWidget<QPushButton>(u"cancelButton"_s);
    cancel->setText(tr::Tr(u"goodsSelectionCancel"_s, u"Назад"_s).ui());
    cancel->setAccessibleName(cancel->text());
    connect(cancel, &QPushButton::clicked, this, &GoodsSelectionForm::onCancel);
    if (auto* all = findWidget<QPushButton>(u"allGoodsButton"_s, false)) {
        const tr::Tr text(u"goodsSelectionAll"_s, u"Все товары"_s);
        all->setText(withShownKey(formkeys::allGoods, text.ui()));
        all->setAccessibleName(text.ui());
        connect(all, &QPushButton::clicked, this, &GoodsSelectionForm::offerAll);
        auto* pressed = new QShortcut(formkeys::allGoods, all); // works while the button is shown
        connect(pressed, &QShortcut::activated, all, &QPushButton::click);
    }
    if (auto* warning = findWidget<QLabel>(u"allGoodsLabel"_s, false)) {
        warning->hide();
    }
    if (auto* keyboard = findWidget<TalloKeyboard>(u"talloKeyboard"_s, false)) {
        keyboard->setKeyboardLayouts(Singleton<Config>::get()->getString(u"Language:keyboardLayouts"_s, u"ru,en"_s));
    }
}

void GoodsSelectionForm::nameControls()
{
    m_filter->setPlaceholderText(tr::Tr(u"goodsSelectionFilterHint"_s, u"Название, МНН или штрихкод"_s).ui());
    setAccessibleNames({
        {u"filterLineEdit"_s, {u"goodsSelectionFilter"_s, u"Поиск товара"_s}},
        {u"quantityLineEdit"_s, {u"goodsSelectionPacksField"_s, u"Количество упаковок"_s}},
        {u"quantityMinusButton"_s, {u"goodsSelectionFewer"_s, u"На упаковку меньше"_s}},
        {u"quantityPlusButton"_s, {u"goodsSelectionMore"_s, u"На упаковку больше"_s}},
        {u"goodsTable"_s, {u"goodsSelectionTable"_s, u"Товары"_s}},
    });
}

/// A barcode is never a number of packs. It goes to the filter, so that the cashier sees the goods before they are
/// sold.
void GoodsSelectionForm::searchScanned(const QString& barcode)
{
    m_filter->setText(barcode);
    m_filter->setFocus();
    m_filter->selectAll(); // the next scan replaces it
}

void GoodsSelectionForm::offerAll()
{
    offerAllOrShow();
    m_filter->setFocus();
}

/// The goods stay limited to the search. The warning stays as long as the form is open.
bool GoodsSelectionForm::offerAllOrShow()
{
    try {
        m_goods.offer(m_allGoods());
    } catch (const BasicException& exception) {
        showHint(exception.tr());
        return false;
    }
    showText(u"allGoodsLabel"_s,
             tr::Tr(u"goodsSelectionAllShown"_s,
                    u"Показаны все товары, не только с МНН «%1». Сверьте действующее вещество."_s)
                 .arg(m_wantedName)
                 .ui(),
             false);
    if (auto* warning = findWidget<QLabel>(u"allGoodsLabel"_s, false)) {
        warning->show();
    }
    m_wantedName.clear();
    onFilterChanged(m_filter->text());
    return true;
}

void GoodsSelectionForm::onChoose()
{
    const QModelIndex current = m_table->currentIndex();
    if (!current.isValid()) {
        showIfNothingMatches();
        m_filter->setFocus();
        return;
    }
    const CatalogueGoods& goods = m_goods.goods(current.row());
    if (const std::optional<tr::Tr> obstacle = goods.obstacleToSelling()) {
        showHint(*obstacle);
        return;
    }
    const std::optional<int> packs = typedPacks();
    if (!packs) {
        showHint(tr::Tr(u"goodsSelectionPacksMissing"_s, u"Введите целое количество упаковок от 1 до %1."_s)
                     .arg(QString::number(maxPacks)));
        m_packs->setFocus();
        m_packs->selectAll();
        return;
    }
    answerForm({{u"data"_s, 0}, {u"result"_s, QVariant::fromValue(SelectedGoods{goods, *packs})}});
}

/// Whole numbers only: the field may hold "1,5", which must not become fifteen packs.
std::optional<int> GoodsSelectionForm::typedPacks() const
{
    bool isWhole = false;
    const int packs = m_packs->text().toInt(&isWhole);
    return isWhole && packs >= 1 && packs <= maxPacks ? std::optional(packs) : std::nullopt;
}

void GoodsSelectionForm::onCancel()
{
    answerForm(u"data"_s, -1);
}

void GoodsSelectionForm::onFilterChanged(const QString& text)
{
    m_goods.search(text);
    makeCurrent(0);
    showIfNothingMatches();
}

void GoodsSelectionForm::showIfNothingMatches()
{
    const QString search = m_filter->text().trimmed();
    const bool nothingMatches = m_goods.rowCount() == 0;
    setStyleProperty(*findWidget<QPushButton>(u"okButton"_s), u"idle"_s, nothingMatches);
    showWhetherAllCanBeOffered(nothingMatches);
    showHint(nothingMatches ? nothingFits(search) : tr::Tr());
}

tr::Tr GoodsSelectionForm::nothingFits(const QString& search) const
{
    const auto quoted = [this](const QString& text) {
        return m_hint->fontMetrics().elidedText(text, Qt::ElideRight, scaledPixels(longestQuote));
    };
    if (!m_wantedName.isEmpty()) {
        const tr::Tr none(u"goodsSelectionNoneOfName"_s, u"Нет товаров с МНН «%1». Можно показать все товары."_s);
        const tr::Tr noMatch(u"goodsSelectionNoMatchOfName"_s,
                             u"Среди товаров с МНН «%1» нет «%2». Измените поиск или покажите все товары."_s);
        return search.isEmpty() ? none.arg(quoted(m_wantedName))
                                : noMatch.arg(quoted(m_wantedName)).arg(quoted(search));
    }
    if (search.isEmpty()) {
        return {u"goodsSelectionNothing"_s, u"Нет товара для выбора. Вернитесь назад."_s};
    }
    return tr::Tr(u"goodsSelectionNotFound"_s, u"По запросу «%1» ничего не найдено. Измените строку поиска."_s)
        .arg(quoted(search));
}

void GoodsSelectionForm::showWhetherAllCanBeOffered(bool nothingMatches)
{
    if (auto* all = findWidget<QPushButton>(u"allGoodsButton"_s, false)) {
        all->setVisible(nothingMatches && !m_wantedName.isEmpty());
    }
}

void GoodsSelectionForm::onAmountButton(int change)
{
    m_packs->setText(QString::number(std::clamp(m_packs->text().toInt() + change, 1, maxPacks)));
}

void GoodsSelectionForm::showHint(const tr::Tr& hint)
{
    showText(u"hintLabel"_s, hint.ui());
}
