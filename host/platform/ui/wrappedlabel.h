// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QLabel>

class QTextLayout;

/// A label for foreign plain text of any length: it wraps anywhere when a word is wider than the label, so that no text
/// widens a window. As high as its text; where that may be too high, it stands in a QScrollArea.
class REGISTERPLATFORM_EXPORT WrappedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget* parent = nullptr);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Breaks the text into lines of that width; returns the size that they take.
    QSizeF layOut(QTextLayout& layout, qreal width) const;
    QSize frameRoom() const;
};
