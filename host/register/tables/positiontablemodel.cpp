// SPDX-License-Identifier: MIT
#include "positiontablemodel.h"

#include "plaintooltip.h"
#include "registerstyle.h"
#include "tr.h"

#include <QBrush>
#include <QFont>

#include <algorithm>

using namespace Qt::StringLiterals;

PositionTableModel::PositionTableModel(const PositionMarks& marks, QObject* parent)
    : QAbstractTableModel(parent)
    , m_marks(marks)
{
}

void PositionTableModel::refresh(const QSharedPointer<Document>& document)
{
    QList<Row> rows;
    if (document) {
        for (const QSharedPointer<Position>& position : document->positions()) {
            rows.append({position->getNumber(), int(rows.size()) + 1, position->getName(), position->getQuantity(),
                         position->initialPrice(), position->price(), position->getSum(), m_marks.look(*position)});
        }
    }
    const bool samePositions =
        std::equal(rows.cbegin(), rows.cend(), m_rows.cbegin(), m_rows.cend(),
                   [](const Row& left, const Row& right) { return left.number == right.number; });
    if (samePositions && !rows.isEmpty()) {
        m_rows = rows;
        emit dataChanged(index(0, 0), index(int(rows.size()) - 1, ColumnCount - 1));
    } else if (!samePositions) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }
}

int PositionTableModel::positionNumber(int row) const
{
    return row >= 0 && row < m_rows.size() ? m_rows.at(row).number : 0;
}

int PositionTableModel::rowOf(int positionNumber) const
{
    const auto row = std::find_if(m_rows.cbegin(), m_rows.cend(), [positionNumber](const Row& candidate) {
        return candidate.number == positionNumber;
    });
    return row == m_rows.cend() ? -1 : int(row - m_rows.cbegin());
}

bool PositionTableModel::isEmpty(Column column) const
{
    return std::all_of(m_rows.cbegin(), m_rows.cend(),
                       [this, column](const Row& row) { return text(row, column).isEmpty(); });
}

int PositionTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int PositionTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PositionTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ToolTipRole:
        return toolTip(row, index.column());
    case Qt::AccessibleTextRole:
        return index.column() == Mark ? row.look.description : QVariant();
    case Qt::ForegroundRole:
        if (index.column() == State && row.look.stateColour.isValid()) {
            return QBrush(row.look.stateColour);
        }
        if (index.column() == Mark) {
            return QBrush(RegisterColours().accent);
        }
        return {};
    case Qt::FontRole:
        if (index.column() == Mark || index.column() == Sum) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    default:
        return {};
    }
}

QVariant PositionTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case Number:
        return tr::Tr(u"receiptColumnNumber"_s, u"№"_s).ui();
    case Name:
        return tr::Tr(u"receiptColumnName"_s, u"Наименование"_s).ui();
    case Mark:
        return tr::Tr(u"receiptColumnMark"_s, u"Вид"_s).ui();
    case Quantity:
        return tr::Tr(u"receiptColumnQuantity"_s, u"Кол-во"_s).ui();
    case InitialPrice:
        return captionWithCurrency(tr::Tr(u"receiptColumnInitialPrice"_s, u"Без льготы"_s).ui());
    case Price:
        return captionWithCurrency(tr::Tr(u"receiptColumnPrice"_s, u"Цена"_s).ui());
    case Sum:
        return captionWithCurrency(tr::Tr(u"receiptColumnSum"_s, u"Сумма"_s).ui());
    case State:
        return tr::Tr(u"receiptColumnState"_s, u"Состояние"_s).ui();
    default:
        return {};
    }
}

QString PositionTableModel::toolTip(const Row& row, int column) const
{
    QStringList lines{column == Mark ? row.look.description : text(row, column)};
    lines += row.look.receiptLines;
    lines.removeAll(QString());
    if (lines.isEmpty()) {
        return {};
    }
    return plainToolTip(lines.join(u'\n'));
}

QString PositionTableModel::text(const Row& row, int column) const
{
    switch (column) {
    case Number:
        return QString::number(row.line);
    case Name:
        return row.name;
    case Mark:
        return row.look.mark;
    case Quantity:
        return packsText(row.packs);
    case InitialPrice:
        return row.initialPrice > row.price ? amountFigures(row.initialPrice) : QString();
    case Price:
        return amountFigures(row.price);
    case Sum:
        return amountFigures(row.sum);
    case State:
        return row.look.state;
    default:
        return {};
    }
}
