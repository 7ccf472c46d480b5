// SPDX-License-Identifier: MIT
#include "searchpanel.h"

#include "scanfilter.h"
#include "tallolineedit.h"
#include "tr.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

SearchPanel::SearchPanel(QWidget* parent)
    : QWidget(parent)
    , m_search(new TalloLineEdit(this))
    , m_total(new QLabel(this))
{
    createSearch();
    auto* caption = new QLabel(tr::Tr(u"receiptTotal"_s, u"ИТОГО"_s).ui(), this);
    caption->setObjectName(u"totalCaptionLabel"_s);
    m_total->setObjectName(u"totalLabel"_s);
    m_total->setAccessibleName(caption->text());
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
    layout->addWidget(caption);
    layout->addWidget(m_total);
    layout->addWidget(unit);
}

void SearchPanel::createSearch()
{
    m_search->setObjectName(u"searchLineEdit"_s);
    const QString hint = tr::Tr(u"searchGoods"_s, u"Поиск товара: название, МНН или штрихкод"_s).ui();
    m_search->setPlaceholderText(hint);
    m_search->setAccessibleName(hint);
    m_search->setMaxLength(200);
    connect(m_search, &QLineEdit::returnPressed, this, [this] { enter(m_search->text()); });
    connect(new ScanFilter(*m_search), &ScanFilter::scanned, this, &SearchPanel::enter);
}

void SearchPanel::showTotal(Kopecks total)
{
    m_total->setText(amountFigures(total));
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
