// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// A column of a TalloTableView, as a value. TalloTableView::setColumns() takes it as a text.
struct REGISTERPLATFORM_EXPORT TableColumn {
    /// As a width: the room that the others leave, shared when several columns ask for it.
    static constexpr int remainingRoom = -1;
    /// As a width: what the contents take.
    static constexpr int fittingContents = -2;
    /// As a width: what the contents take, and no less than 9 999 999,99 in bold type takes.
    static constexpr int fittingMoney = -3;

    /// As alignments.
    static constexpr Qt::Alignment left = Qt::AlignVCenter | Qt::AlignLeft;
    static constexpr Qt::Alignment right = Qt::AlignVCenter | Qt::AlignRight;
    static constexpr Qt::Alignment centred = Qt::AlignVCenter | Qt::AlignHCenter;

    QString name;                               ///< only in the text; the table does not use it
    int width = remainingRoom;                  ///< pixels in the smallest window, or one of the codes above
    Qt::Alignment alignment = Qt::AlignVCenter; ///< of the cells
    bool isShown = true;
    QString caption = {}; ///< only in the text; the header shows the model's

    /// "name;caption;width;shown;alignment": shown is "true" or "false", alignment is Qt::Alignment as a number.
    QString text() const;
    static QStringList texts(const QList<TableColumn>& columns);

    /// The column that a text describes; nothing when the text has another form. Blanks around a field do not count,
    /// except in the name and the caption.
    static std::optional<TableColumn> fromText(const QString& text);
};
