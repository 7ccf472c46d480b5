// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QCache>
#include <QLabel>
#include <QTextLayout>

/// A label for plain text of any length, for example from a server. A word that is wider than the label is broken
/// anywhere, so that no text widens a window. The label is as high as its text; in a QScrollArea it may be of any
/// height. Where its height is limited the text ends in an ellipsis, and is whole in the tool tip.
class REGISTERPLATFORM_EXPORT WrappedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget* parent = nullptr);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// True when the text does not fit and ends in an ellipsis.
    bool isCut() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// Breaks the text of the layout into lines of that width, in pixels, and returns their size. It takes long for
    /// long words, so it is called once for each text, font and width.
    virtual QSizeF breakIntoLines(QTextLayout& layout, int width) const;

private:
    struct Lines {
        QTextLayout layout;
        QSizeF size;
    };
    const Lines& lines(int width) const;
    /// The number of lines that have room; at least one.
    int linesWithRoom(const Lines& lines) const;
    void drawLastLine(QPainter& painter, const QTextLine& line) const;
    QRect textRoom() const;
    QSize frameRoom() const;

    mutable QCache<int, Lines> m_lines; // by width
    mutable QString m_wholeText;        // the text of these lines
    mutable QString m_brokenText;       // the same with places to break
    mutable QFont m_brokenFont;
};
