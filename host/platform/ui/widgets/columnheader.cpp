// SPDX-License-Identifier: MIT
#include "columnheader_p.h"

#include <QStyleOptionHeader>

ColumnHeader::ColumnHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
}

void ColumnHeader::setCaption(int section, const QString& caption)
{
    if (caption.isEmpty()) {
        m_captions.remove(section);
    } else {
        m_captions.insert(section, caption);
    }
    headerDataChanged(Qt::Horizontal, section, section);
}

void ColumnHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    if (const auto caption = m_captions.constFind(section); caption != m_captions.cend()) {
        option->text = *caption;
    }
}

QSize ColumnHeader::sectionSizeFromContents(int section) const
{
    const auto caption = m_captions.constFind(section);
    if (caption == m_captions.cend()) {
        return QHeaderView::sectionSizeFromContents(section);
    }
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.section = section;
    option.text = *caption;
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, this);
}
