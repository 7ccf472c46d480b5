// SPDX-License-Identifier: MIT
#include "searchpanel.h"

#include "scanfilter.h"
#include "tallolineedit.h"
#include "tr.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

SearchPanel::SearchPanel(const QString& paymentKey, QWidget* parent)
    : QWidget(parent)
    , m_paymentKey(paymentKey)
    , m_search(new TalloLineEdit(this))
    , m_caption(new QLabel(this))
    , m_total(new QLabel(this))
{
    createSearch();
    m_caption->setObjectName(u"totalCaptionLabel"_s);
    m_total->setObjectName(u"totalLabel"_s);
    m_total->setProperty("textSize", u"sum"_s);
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* unit = new QLabel(currency(), this);
    unit->setObjectName(u"totalCurrencyLabel"_s);
    unit->setVisible(!unit->text().isEmpty());

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_search, 1);
    layout->addSpacing(16);
    layout->addWidget(m_caption);
    layout->addWidget(m_total);
    layout->addWidget(unit);
    showDocument(nullptr);
}

void SearchPanel::createSearch()
{
    m_search->setObjectName(u"searchLineEdit"_s);
    m_search->setMaxLength(200);
    connect(m_search, &QLineEdit::returnPressed, this, [this] { enter(m_search->text()); });
    connect(new ScanFilter(*m_search), &ScanFilter::scanned, this, &SearchPanel::enter);
}

void SearchPanel::showDocument(const Document* document)
{
    const bool isReturn = document && document->isReturn();
    const QString hint =
        isReturn ? returnHint() : tr::Tr(u"searchGoods"_s, u"Поиск товара: название, МНН или штрихкод"_s).ui();
    m_search->setPlaceholderText(hint);
    m_search->setAccessibleName(hint);
    m_caption->setText(
        (isReturn ? tr::Tr(u"returnTotal"_s, u"К возврату"_s) : tr::Tr(u"receiptTotal"_s, u"ИТОГО"_s)).ui());
    m_total->setAccessibleName(m_caption->text());
    m_total->setText(amountFigures(document ? document->getSum() : Kopecks{}));
}

QString SearchPanel::returnHint() const
{
    return m_paymentKey.isEmpty()
               ? tr::Tr(u"returnNext"_s, u"Проверьте позиции возврата, затем выплатите деньги"_s).ui()
               : tr::Tr(u"returnNextKey"_s, u"Проверьте позиции возврата, затем %1 — выплата"_s).arg(m_paymentKey).ui();
}

void SearchPanel::clear()
{
    m_search->clear();
}

QWidget* SearchPanel::input() const
{
    return m_search;
}

void SearchPanel::enter(const QString& text)
{
    const QString wanted = text.trimmed();
    m_search->clear();
    if (!wanted.isEmpty()) {
        emit entered(wanted);
    }
}
