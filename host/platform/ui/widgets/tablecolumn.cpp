// SPDX-License-Identifier: MIT
#include "tablecolumn.h"

using namespace Qt::StringLiterals;

QString TableColumn::text() const
{
    const QStringList fields{
        name, caption, QString::number(width), isShown ? u"true"_s : u"false"_s, QString::number(alignment.toInt()),
    };
    return fields.join(u';');
}

QStringList TableColumn::texts(const QList<TableColumn>& columns)
{
    QStringList texts;
    for (const TableColumn& column : columns) {
        texts.append(column.text());
    }
    return texts;
}

std::optional<TableColumn> TableColumn::fromText(const QString& text)
{
    const QStringList fields = text.split(u';');
    if (fields.size() != 5) {
        return std::nullopt;
    }
    bool isWidth = false;
    bool isAlignment = false;
    const int width = fields[2].trimmed().toInt(&isWidth);
    const QString shown = fields[3].trimmed();
    const int alignment = fields[4].trimmed().toInt(&isAlignment);
    const bool isShown = shown == "true"_L1;
    if (!isWidth || width < fittingMoney || !isAlignment || (!isShown && shown != "false"_L1)) {
        return std::nullopt;
    }
    return TableColumn{fields[0], width, Qt::Alignment::fromInt(alignment), isShown, fields[1]};
}
