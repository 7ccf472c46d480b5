// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "goodsitem.h"
#include "tr.h"

#include <QColor>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// How the positions of plug-ins look, read from their files `positionmarks.json` (docs/position-marks.md).
class PositionMarks
{
public:
    /// A marked position as it is shown, in the language of the interface.
    struct Look {
        QString mark;
        QString description;
        QString state; ///< empty: no state fits
        QColor stateColour;
        QStringList receiptLines; ///< for example "Рецепт: 4500-1"; plain text
    };

    /// Adds the marks of a file. A missing file is ignored; an unreadable file or entry is logged and left out.
    void load(const QString& file);

    /// All texts are empty when no plug-in marks the position.
    Look look(const GoodsItem& position) const;

    /// What plug-ins show above the positions, for example "Карта: 1100…"; empty: nothing.
    QString documentText(const AbstractDocument& document) const;

private:
    struct State {
        QString option;
        std::optional<QString> value; ///< none: fits when the option is absent
        tr::Tr text;
        QColor colour;
    };
    struct ReceiptLine {
        QString option;
        tr::Tr label;
        bool isDiscount; ///< the option is the fraction of the price that is paid
    };
    struct Mark {
        QString tag;
        tr::Tr mark;
        tr::Tr description;
        QList<State> states;
        QList<ReceiptLine> receiptLines;
    };
    struct DocumentLine {
        QString plugin;
        QString key;
        tr::Tr label;
    };

    static Mark readMark(const QJsonObject& entry);
    static bool fits(const State& state, const QJsonObject& options);
    static QString valueText(const ReceiptLine& line, const QJsonObject& options);

    QList<Mark> m_marks;
    QList<DocumentLine> m_documentLines;
};
