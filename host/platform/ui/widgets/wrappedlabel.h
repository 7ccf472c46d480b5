// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QCache>
#include <QLabel>
#include <QTextLayout>

/// A label for foreign plain text of any length: it wraps anywhere when a word is wider than the label, so that no text
/// widens a window. As high as its text; where that may be too high, it stands in a QScrollArea. A text that is higher
/// than the label may become ends in an ellipsis, and the whole of it is in the tool tip.
class REGISTERPLATFORM_EXPORT WrappedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget* parent = nullptr);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// Breaks the text of the layout into lines of that width; returns the size that they take. Costs time with long
    /// words: once for each text, font and width.
    virtual QSizeF breakIntoLines(QTextLayout& layout, int width) const;

private:
    struct Lines {
        QTextLayout layout;
        QSizeF size;
    };
    const Lines& lines(int width) const;
    /// How many lines have room; at least one.
    int linesWithRoom(const Lines& lines) const;
    void drawLastLine(QPainter& painter, const QTextLine& line) const;
    QRect textRoom() const;
    QSize frameRoom() const;

    mutable QCache<int, Lines> m_lines; // by width
    mutable QString m_wholeText;        // whose lines these are
    mutable QString m_brokenText;       // the same with places to break
    mutable QFont m_brokenFont;
};
