// SPDX-License-Identifier: MIT
#include "tallotableview.h"

#include "columndelegate_p.h"
#include "registerstyle.h"
#include "tablecolumn.h"
#include "touchmode.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QHeaderView>
#include <QMouseEvent>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// In the smallest window, in pixels.
constexpr int plainRowHeight = 32;
constexpr int touchRowHeight = 44;
/// Rows that a column fits: those on the screen and some more, however long the table is.
constexpr int fittedRows = 50;
/// The widest amount that a column of money has to hold, with no-break spaces.
const QString widestAmount = u"9\u00a0999\u00a0999,99"_s;

} // namespace

TalloTableView::TalloTableView(QWidget* parent)
    : QTableView(parent)
    , m_delegate(new ColumnDelegate(this))
{
    setItemDelegate(m_delegate);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(false);
    header->setResizeContentsPrecision(fittedRows);
    connect(header, &QHeaderView::sectionCountChanged, this, &TalloTableView::applyColumns);

    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(scaledPixels(plainRowHeight));
    verticalHeader()->setDefaultSectionSize(scaledPixels(isTouchMode() ? touchRowHeight : plainRowHeight));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setShowGrid(false);
}

void TalloTableView::setColumns(const QStringList& columns)
{
    m_columns = columns;
    applyColumns();
}

void TalloTableView::applyColumns()
{
    QHeaderView* header = horizontalHeader();
    const int count = qMin(header->count(), int(m_columns.size()));
    m_moneyColumns.clear();
    for (int section = 0; section < count; ++section) {
        const std::optional<TableColumn> column = TableColumn::fromText(m_columns[section]);
        if (!column) {
            Log4Qt::LogManager::logger(u"gui"_s)->warn(u"A column of the table "_s + objectName() +
                                                       u" cannot be read: "_s + m_columns[section]);
            continue;
        }
        m_delegate->setAlignment(section, column->alignment);
        switch (column->width) {
        case TableColumn::remainingRoom:
            header->setSectionResizeMode(section, QHeaderView::Stretch);
            break;
        case TableColumn::fittingMoney:
            m_moneyColumns.insert(section);
            [[fallthrough]];
        case TableColumn::fittingContents:
            header->setSectionResizeMode(section, QHeaderView::ResizeToContents);
            break;
        default:
            header->setSectionResizeMode(section, QHeaderView::Interactive);
            header->resizeSection(section, scaledPixels(column->width));
        }
        setColumnHidden(section, !column->isShown);
    }
    viewport()->update();
}

int TalloTableView::sizeHintForColumn(int column) const
{
    int width = QTableView::sizeHintForColumn(column);
    if (model() && model()->rowCount() > fittedRows) { // rows that are counted have their longest number at the end
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        width = qMax(width, itemDelegate()->sizeHint(option, model()->index(model()->rowCount() - 1, column)).width());
    }
    return m_moneyColumns.contains(column) ? qMax(width, moneyWidth()) : width;
}

int TalloTableView::moneyWidth() const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.font.setBold(true);
    option.fontMetrics = QFontMetrics(option.font);
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = widestAmount;
    return style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width() + int(showGrid());
}

void TalloTableView::mousePressEvent(QMouseEvent* event)
{
    if (indexAt(event->position().toPoint()).isValid()) {
        QTableView::mousePressEvent(event);
    }
}
