// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "goodsitem.h"

#include <QColor>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// How plug-ins' positions look on the document, as their files `positionmarks.json` say (docs/position-marks.md).
class PositionMarks
{
public:
    /// What the document table shows of a marked position.
    struct Look {
        QString mark;
        QString description;
        QString state; ///< empty: no state fits
        QColor stateColour;
        QStringList receiptLines; ///< such as "Рецепт: 4500-1"; plain text
    };

    /// Adds what a file says. One that is not there, and what cannot be read in it, is passed over; the latter is
    /// logged.
    void load(const QString& file);

    /// How the position looks; empty texts when no plug-in marks it.
    Look look(const GoodsItem& position) const;

    /// What plug-ins want told above the document, such as "Карта: 1100…"; empty: nothing.
    QString documentText(const AbstractDocument& document) const;

private:
    struct State {
        QString option;
        std::optional<QString> value; ///< none: fits when the option is absent
        QString text;
        QColor colour;
    };
    struct ReceiptLine {
        QString option;
        QString label;
        bool isDiscount; ///< the option is the share of the price that is paid
    };
    struct Mark {
        QString tag;
        QString mark;
        QString description;
        QList<State> states;
        QList<ReceiptLine> receiptLines;
    };
    struct DocumentLine {
        QString plugin;
        QString key;
        QString label;
    };

    static Mark readMark(const QJsonObject& entry);
    static bool fits(const State& state, const QJsonObject& options);
    static QString valueText(const ReceiptLine& line, const QJsonObject& options);

    QList<Mark> m_marks;
    QList<DocumentLine> m_documentLines;
};
