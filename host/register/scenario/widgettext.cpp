// SPDX-License-Identifier: MIT
#include "widgettext.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace
{

QString tableText(const QTableView& table)
{
    const QAbstractItemModel* model = table.model();
    if (!model) {
        return {};
    }
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            if (!table.isColumnHidden(column)) {
                cells.append(model->index(row, column).data().toString());
            }
        }
        rows.append(cells.join(u" | "_s));
    }
    return rows.join(u'\n');
}

QString rawText(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text();
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
        return line->text();
    }
    if (const auto* table = qobject_cast<const QTableView*>(&widget)) {
        return tableText(*table);
    }
    return {};
}

} // namespace

QString widgetText(const QWidget& widget)
{
    return rawText(widget).replace(QChar::Nbsp, u' ');
}
