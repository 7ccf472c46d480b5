// SPDX-License-Identifier: MIT
#include "tallotableview.h"

#include "columndelegate_p.h"
#include "columnheader_p.h"
#include "touchmode.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QMouseEvent>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

constexpr int elasticWidth = -1;
constexpr int fittingWidth = -2;
constexpr int plainRowHeight = 32;
constexpr int touchRowHeight = 44;
/// Rows that a fitting column looks at: those on the screen and some more, however long the table is.
constexpr int fittedRows = 50;

struct Column {
    QString caption;
    int width;
    bool isShown;
    Qt::Alignment alignment;
};

/// Reads "name;caption;width;shown;alignment".
std::optional<Column> readColumn(const QString& item)
{
    const QStringList fields = item.split(u';');
    if (fields.size() != 5) {
        return std::nullopt;
    }
    bool isWidth = false;
    bool isAlignment = false;
    const int width = fields[2].trimmed().toInt(&isWidth);
    const QString shown = fields[3].trimmed();
    const int alignment = fields[4].trimmed().toInt(&isAlignment);
    const bool isShown = shown == "true"_L1;
    if (!isWidth || width < fittingWidth || !isAlignment || (!isShown && shown != "false"_L1)) {
        return std::nullopt;
    }
    return Column{fields[1], width, isShown, Qt::Alignment(alignment)};
}

} // namespace

TalloTableView::TalloTableView(QWidget* parent)
    : QTableView(parent)
    , m_header(new ColumnHeader(this))
    , m_delegate(new ColumnDelegate(this))
{
    setHorizontalHeader(m_header);
    setItemDelegate(m_delegate);
    m_header->setHighlightSections(false);
    m_header->setSectionsClickable(false);
    m_header->setResizeContentsPrecision(fittedRows);
    connect(m_header, &QHeaderView::sectionCountChanged, this, &TalloTableView::applyColumns);

    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(plainRowHeight);
    verticalHeader()->setDefaultSectionSize(isTouchMode() ? touchRowHeight : plainRowHeight);
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
    const int count = qMin(m_header->count(), int(m_columns.size()));
    for (int section = 0; section < count; ++section) {
        const std::optional<Column> column = readColumn(m_columns[section]);
        if (!column) {
            Log4Qt::LogManager::logger(u"gui"_s)->warn("A column of the table " + objectName() +
                                                       " does not read: " + m_columns[section]);
            continue;
        }
        m_header->setCaption(section, column->caption);
        m_delegate->setAlignment(section, column->alignment);
        if (column->width == elasticWidth) {
            m_header->setSectionResizeMode(section, QHeaderView::Stretch);
        } else if (column->width == fittingWidth) {
            m_header->setSectionResizeMode(section, QHeaderView::ResizeToContents);
        } else {
            m_header->setSectionResizeMode(section, QHeaderView::Interactive);
            m_header->resizeSection(section, column->width);
        }
        setColumnHidden(section, !column->isShown);
    }
    viewport()->update();
}

void TalloTableView::mousePressEvent(QMouseEvent* event)
{
    if (indexAt(event->position().toPoint()).isValid()) {
        QTableView::mousePressEvent(event);
    }
}
