// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "position.h"
#include "tr.h"

#include <QColor>
#include <QJsonObject>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <optional>

/// How the positions of plug-ins look, read from their files `positionmarks.json` (docs/position-marks.md). Several
/// plug-ins may describe the positions of one tag.
class PositionMarks
{
public:
    /// A marked position as it is shown, in the language of the interface.
    struct Look {
        QString mark;
        QString description;
        QString state; ///< empty: no state fits
        QString undoing; ///< what taking the position away undoes, for example "Отпуск будет отменён."; empty: nothing
        QColor stateColour;
        QStringList receiptLines; ///< for example "Рецепт: 4500-1"; plain text
    };

    /// Adds the marks of a file, whose folder has the name of its plug-in. A missing file is ignored; an unreadable
    /// file or entry is logged and left out.
    void load(const QString& file);

    /// All texts are empty when no plug-in marks the position.
    Look look(const Position& position) const;

    /// What an external position is sold by, as a sentence goes on: "по рецепту". "по документу" when no plug-in says.
    QString origin(const Position& position) const;

    /// What taking these positions away undoes, each text once.
    QStringList undoings(const QList<QSharedPointer<Position>>& positions) const;

    /// The plug-ins that do not know yet what their servers hold of the position: those whose `undecided` state fits,
    /// and of Position::savedUndecidedPlugins() those whose file was not loaded, since nobody else reads their state.
    QStringList undecidedPlugins(const Position& position) const;

    /// What plug-ins show above the positions, for example "Карта: 1100…"; empty: nothing.
    QString documentText(const AbstractDocument& document) const;

private:
    struct State {
        QString option;
        std::optional<QString> value; ///< none: fits when the option is absent
        double priority = 0;          ///< of those that fit the one with the smallest is shown
        tr::Tr text;
        QColor colour;
        tr::Tr undoing;
        bool isUndecided = false; ///< see undecidedPlugins()
    };
    enum class Form { Text, Number, Discount };
    struct ReceiptLine {
        QString option;
        tr::Tr label;
        Form form;
    };
    struct Mark {
        QString plugin;
        QString tag;
        tr::Tr mark;
        tr::Tr description;
        tr::Tr origin;
        QList<State> states;
        QList<ReceiptLine> receiptLines;
    };
    struct DocumentLine {
        QString plugin;
        QString key;
        tr::Tr label;
    };

    QList<const Mark*> marksOf(const Position& position) const;
    static QString firstText(const QList<const Mark*>& marks, tr::Tr Mark::*member);
    static const State* shownState(const QList<const Mark*>& marks, const QJsonObject& options);
    static QStringList receiptLines(const QList<const Mark*>& marks, const Position& position,
                                    const QJsonObject& options);
    static bool isUndecided(const Mark& mark, const QJsonObject& options);
    static Mark readMark(const QJsonObject& entry, const QString& plugin);
    static bool fits(const State& state, const QJsonObject& options);
    static Form formOf(const QString& word);
    static QString valueText(const ReceiptLine& line, const Position& position, const QJsonObject& options);

    QStringList m_plugins; ///< whose files were loaded
    QList<Mark> m_marks;
    QList<DocumentLine> m_documentLines;
};
