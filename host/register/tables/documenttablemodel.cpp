// SPDX-License-Identifier: MIT
#include "documenttablemodel.h"

#include "documentwords.h"
#include "registerstyle.h"
#include "tr.h"

#include <QBrush>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Amber, dark enough for text.
constexpr QRgb waitingText = qRgb(0x8a, 0x5a, 0x00);

QString timeText(const QDateTime& time)
{
    return time.toString(u"dd.MM.yyyy hh:mm"_s);
}

bool isCancelledOrVoided(const Document& document)
{
    return document.getState() == Document::State::Cancelled || document.getState() == Document::State::Voided;
}

/// The cashier has to finish something.
bool waits(const Document& document, Document::Returned returned)
{
    return document.getState() == Document::State::Suspended ||
           (document.isVoidingBegun() && returned == Document::Returned::Nothing);
}

} // namespace

void DocumentTableModel::show(const QList<Pointer>& documents,
                              const std::function<Document::Returned(const Document&)>& returned)
{
    beginResetModel();
    m_rows.clear();
    for (const Pointer& document : documents) {
        m_rows.append({document, returned(*document)});
    }
    endResetModel();
}

void DocumentTableModel::add(const QList<Pointer>& documents,
                             const std::function<Document::Returned(const Document&)>& returned)
{
    for (const Pointer& document : documents) {
        const auto place = std::find_if(m_rows.cbegin(), m_rows.cend(), [&document](const Row& row) {
            return row.document->getNumber() <= document->getNumber();
        });
        if (place != m_rows.cend() && place->document->getNumber() == document->getNumber()) {
            continue;
        }
        const auto row = int(place - m_rows.cbegin());
        beginInsertRows({}, row, row);
        m_rows.insert(row, {document, returned(*document)});
        endInsertRows();
    }
}

QString DocumentTableModel::dayText(QDate day)
{
    return day.toString(u"dd.MM.yyyy"_s);
}

int DocumentTableModel::rowOf(int number) const
{
    const auto row = std::find_if(m_rows.cbegin(), m_rows.cend(),
                                  [number](const Row& candidate) { return candidate.document->getNumber() == number; });
    return row == m_rows.cend() ? -1 : int(row - m_rows.cbegin());
}

int DocumentTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int DocumentTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DocumentTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Row& row = m_rows.at(index.row());
    const bool isWaiting = waits(*row.document, row.returned) && index.column() == State;
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ToolTipRole:
        return index.column() == Time ? times(*row.document) : QVariant();
    case Qt::ForegroundRole:
        if (isWaiting) {
            return QBrush(QColor(waitingText));
        }
        return isCancelledOrVoided(*row.document) ? QBrush(RegisterColours().mutedText) : QVariant();
    default:
        return {};
    }
}

QVariant DocumentTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case Number:
        return tr::Tr(u"documentColumnNumber"_s, u"№"_s).ui();
    case State:
        return tr::Tr(u"documentColumnState"_s, u"Документ"_s).ui();
    case Time:
        return tr::Tr(u"documentColumnTime"_s, u"Время"_s).ui();
    case Positions:
        return tr::Tr(u"documentColumnPositions"_s, u"Позиций"_s).ui();
    case Sum:
        return captionWithCurrency(tr::Tr(u"documentColumnSum"_s, u"Сумма"_s).ui());
    default:
        return {};
    }
}

QString DocumentTableModel::text(const Row& row, int column)
{
    const Document& document = *row.document;
    switch (column) {
    case Number:
        return QString::number(document.getNumber());
    case State:
        return documentwords::state(document, row.returned);
    case Time:
        return timeText(document.getFinished().isValid() ? document.getFinished() : document.getOpened());
    case Positions:
        return QString::number(document.positions().size());
    case Sum:
        return amountFigures(document.getSum());
    case SearchText:
        return searchText(row);
    case Days:
        return dayText(document.getOpened().date()) + u' ' + dayText(document.getFinished().date());
    default:
        return {};
    }
}

QString DocumentTableModel::times(const Document& document)
{
    QStringList times;
    const auto add = [&times](const tr::Tr& what, const QDateTime& when) {
        times.append(what.arg(timeText(when)).ui());
    };
    const QDateTime finished = document.getFinished();
    const QDateTime voided = document.getVoided();
    add({u"documentOpened"_s, u"Открыт %1"_s}, document.getOpened());
    if (finished.isValid() && finished != voided) { // equal: it was suspended until it was voided
        add({u"documentFinishedAt"_s, u"завершён %1"_s}, finished);
    }
    if (voided.isValid()) {
        add({u"documentAnnulledAt"_s, u"аннулирован %1"_s}, voided);
    }
    return times.join(u", "_s);
}

QString DocumentTableModel::searchText(const Row& row)
{
    QStringList parts{text(row, Number), text(row, State)};
    for (const auto& position : row.document->positions()) {
        parts.append(position->getName());
    }
    return parts.join(u'\n');
}
