// SPDX-License-Identifier: MIT
#include "goodsselectionform.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "config.h"
#include "dialogeventfilter.h"
#include "registerstyle.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <optional>

namespace
{
constexpr int mostPacks = 999;
/// Room for what was searched for, in a hint, in pixels.
constexpr int longestQuote = 240;
} // namespace

GoodsSelectionForm::GoodsSelectionForm(const GoodsSelectionParams& params, QObject* parent)
    : BasicForm(parent)
    , m_goods(params.goods)
    , m_scansIntoPacks(ScanRecognizer::configured())
{
    loadUI(QStringLiteral("goodsselection.ui"));
    if (!isTouchMode())
        deleteWidgets({QStringLiteral("quantityMinusButton"), QStringLiteral("quantityPlusButton"),
                       QStringLiteral("scrollButtonsNavigationBar"), QStringLiteral("navigationBar")});
    m_table = findWidget<TalloTableView>(QStringLiteral("goodsTable"));
    m_filter = findWidget<TalloLineEdit>(QStringLiteral("filterLineEdit"));
    m_packs = findWidget<TalloLineEdit>(QStringLiteral("quantityLineEdit"));
    m_hint = findWidget<QLabel>(QStringLiteral("hintLabel"));

    findWidget<QLabel>(QStringLiteral("titleLabel"))
        ->setText(tr::Tr(QStringLiteral("goodsSelectionTitle"), QStringLiteral("Подбор товара")).ui());
    auto* medicine = findWidget<QLabel>(QStringLiteral("medicineInfoLabel"));
    medicine->setText(params.medicineInfo);
    medicine->setVisible(!params.medicineInfo.isEmpty());

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
    if (params.picked)
        offerPicked(*params.picked);
    else if (params.filter.isEmpty())
        offerWanted(params.medicineInfo);
}

void GoodsSelectionForm::offerPicked(const SelectedGoods& picked)
{
    for (int row = 0; row < m_goods.rowCount(); ++row) {
        if (m_goods.goods(row).code != picked.goods.code)
            continue;
        makeCurrent(row);
        m_packs->setText(QString::number(picked.packs));
        return;
    }
}

/// Makes the goods current that what they are for names: its parts stand between slashes, and a name of goods begins
/// with the trade name and a comma. Only goods in stock are offered so.
void GoodsSelectionForm::offerWanted(const QString& medicineInfo)
{
    for (const QString& part : medicineInfo.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        for (int row = 0; row < m_goods.rowCount(); ++row) {
            const CatalogueGoods& goods = m_goods.goods(row);
            const QString tradeName = goods.name.section(QLatin1Char(','), 0, 0).trimmed();
            if (goods.isInStock() && tradeName.compare(part.trimmed(), Qt::CaseInsensitive) == 0) {
                makeCurrent(row);
                return;
            }
        }
    }
}

void GoodsSelectionForm::makeCurrent(int row)
{
    m_table->setCurrentIndex(m_filtered.mapFromSource(m_goods.index(row, GoodsTableModel::Name)));
}

void GoodsSelectionForm::setUpTable()
{
    m_filtered.setSourceModel(&m_goods);
    m_table->setModel(&m_filtered);
    m_table->setColumns({
        QStringLiteral("name;;-1;true;129"),
        QStringLiteral("nonProprietaryName;;220;true;129"),
        QStringLiteral("price;;140;true;130"),
        QStringLiteral("stock;;110;true;130"),
        QStringLiteral("searchText;;0;false;129"),
    });
}

void GoodsSelectionForm::setUpPacks()
{
    m_packs->setText(QStringLiteral("1"));
    m_packs->installEventFilter(this);
    findWidget<QLabel>(QStringLiteral("quantityLabel"))
        ->setText(tr::Tr(QStringLiteral("goodsSelectionPacks"), QStringLiteral("Упаковок:")).ui());
    if (auto* fewer = findWidget<QPushButton>(QStringLiteral("quantityMinusButton"), false))
        connect(fewer, &QPushButton::clicked, this, [this] { onAmountButton(-1); });
    if (auto* more = findWidget<QPushButton>(QStringLiteral("quantityPlusButton"), false))
        connect(more, &QPushButton::clicked, this, [this] { onAmountButton(+1); });
}

void GoodsSelectionForm::setUpButtons()
{
    auto* choose = findWidget<QPushButton>(QStringLiteral("okButton"));
    choose->setText(tr::Tr(QStringLiteral("goodsSelectionOk"), QStringLiteral("Выбрать")).ui());
    choose->setAccessibleName(choose->text());
    connect(choose, &QPushButton::clicked, this, &GoodsSelectionForm::onChoose);
    auto* cancel = findWidget<QPushButton>(QStringLiteral("cancelButton"));
    cancel->setText(tr::Tr(QStringLiteral("goodsSelectionCancel"), QStringLiteral("Назад")).ui());
    cancel->setAccessibleName(cancel->text());
    connect(cancel, &QPushButton::clicked, this, &GoodsSelectionForm::onCancel);
    if (auto* keyboard = findWidget<TalloKeyboard>(QStringLiteral("talloKeyboard"), false))
        keyboard->setKeyboardLayouts(
            Singleton<Config>::get()->getString(QStringLiteral("Language:keyboardLayouts"), QStringLiteral("ru,en")));
}

void GoodsSelectionForm::nameControls()
{
    m_filter->setPlaceholderText(
        tr::Tr(QStringLiteral("goodsSelectionFilterHint"), QStringLiteral("Название, МНН или штрихкод")).ui());
    setAccessibleNames({
        {"filterLineEdit", {"goodsSelectionFilter", "Поиск товара"}},
        {"quantityLineEdit", {"goodsSelectionPacksField", "Количество упаковок"}},
        {"quantityMinusButton", {"goodsSelectionFewer", "На упаковку меньше"}},
        {"quantityPlusButton", {"goodsSelectionMore", "На упаковку больше"}},
        {"goodsTable", {"goodsSelectionTable", "Товары"}},
        {"pageUpButton", {"goodsSelectionPageUp", "На страницу вверх"}},
        {"scrollUpButton", {"goodsSelectionUp", "Вверх"}},
        {"scrollDownButton", {"goodsSelectionDown", "Вниз"}},
        {"pageDownButton", {"goodsSelectionPageDown", "На страницу вниз"}},
    });
}

bool GoodsSelectionForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_packs && event->type() == QEvent::KeyPress && endsScanIntoPacks(*static_cast<QKeyEvent*>(event)))
        return true;
    return BasicForm::eventFilter(watched, event);
}

/// A barcode is what to search for, never a number of packs. The cashier sees what was found before it is sold.
bool GoodsSelectionForm::endsScanIntoPacks(const QKeyEvent& key)
{
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) {
        m_scansIntoPacks.key(key, m_packs->text());
        return false;
    }
    const std::optional<ScanRecognizer::Scan> scan = m_scansIntoPacks.finish(key.timestamp());
    if (!scan)
        return false;
    m_packs->setText(scan->fieldBefore);
    m_filter->setText(scan->text);
    m_filter->setFocus();
    m_filter->selectAll(); // the next scan takes its place
    return true;
}

void GoodsSelectionForm::onChoose()
{
    const QModelIndex current = m_table->currentIndex();
    if (!current.isValid()) {
        tellWhenNothingIsLeft();
        m_filter->setFocus();
        return;
    }
    const CatalogueGoods& goods = m_goods.goods(m_filtered.mapToSource(current).row());
    if (!goods.isInStock()) {
        showHint(tr::Tr(QStringLiteral("goodsSelectionOutOfStock"),
                        QStringLiteral("Этого товара нет на остатке. Выберите другой.")));
        return;
    }
    const std::optional<int> packs = typedPacks();
    if (!packs) {
        showHint(tr::Tr(QStringLiteral("goodsSelectionPacksMissing"),
                        QStringLiteral("Введите целое количество упаковок от 1 до %1."))
                     .arg(QString::number(mostPacks)));
        m_packs->setFocus();
        m_packs->selectAll();
        return;
    }
    if (*packs > goods.stock) {
        showHint(
            tr::Tr(QStringLiteral("goodsSelectionStock"),
                   QStringLiteral("На остатке %1 уп., запрошено %2. Уменьшите количество или выберите другой товар."))
                .arg(QString::number(goods.stock))
                .arg(QString::number(*packs)));
        return;
    }
    answer(0, QVariant::fromValue(SelectedGoods{goods, *packs}));
}

/// A whole number only. The field holds whatever was typed: "1,5" with its comma dropped would be fifteen packs.
std::optional<int> GoodsSelectionForm::typedPacks() const
{
    bool isWhole = false;
    const int packs = m_packs->text().toInt(&isWhole);
    return isWhole && packs >= 1 && packs <= mostPacks ? std::optional(packs) : std::nullopt;
}

void GoodsSelectionForm::onCancel()
{
    answer(-1, {});
}

void GoodsSelectionForm::onFilterChanged(const QString& text)
{
    m_filtered.addFilter(GoodsTableModel::SearchText, text.trimmed(), ComplexFilterProxyModel::Contains);
    m_table->setCurrentIndex(m_filtered.index(0, GoodsTableModel::Name));
    tellWhenNothingIsLeft();
}

void GoodsSelectionForm::tellWhenNothingIsLeft()
{
    const QString search = m_filter->text().trimmed();
    const bool isNoneLeft = m_filtered.rowCount() == 0;
    setStyleProperty(*findWidget<QPushButton>(QStringLiteral("okButton")), QStringLiteral("idle"), isNoneLeft);
    if (!isNoneLeft)
        showHint({});
    else if (search.isEmpty())
        showHint(
            tr::Tr(QStringLiteral("goodsSelectionNothing"), QStringLiteral("Нет товара для выбора. Вернитесь назад.")));
    else
        showHint(tr::Tr(QStringLiteral("goodsSelectionNotFound"),
                        QStringLiteral("По запросу «%1» ничего не найдено. Измените строку поиска."))
                     .arg(m_hint->fontMetrics().elidedText(search, Qt::ElideRight, longestQuote)));
}

void GoodsSelectionForm::onAmountButton(int change)
{
    m_packs->setText(QString::number(std::clamp(m_packs->text().toInt() + change, 1, mostPacks)));
}

void GoodsSelectionForm::showHint(const tr::Tr& hint)
{
    m_hint->setText(hint.ui());
}

void GoodsSelectionForm::answer(int data, const QVariant& result)
{
    control::Action action = Singleton<control::ActionFactory>::get()->create(control::DialogAnswer);
    action.appendArgument(data, QStringLiteral("data"));
    if (result.isValid())
        action.appendArgument(result, QStringLiteral("result"));
    Singleton<ActionQueueController>::get()->enqueue(action, true);
}
