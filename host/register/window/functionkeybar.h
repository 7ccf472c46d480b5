// SPDX-License-Identifier: MIT
#pragma once

#include "functionkey.h"

#include <QList>
#include <QWidget>

class QPushButton;

/// The function keys, each with its shortcut (not in touch mode) and its text, in as few rows as these fit into.
class FunctionKeyBar : public QWidget
{
    Q_OBJECT

public:
    explicit FunctionKeyBar(const QList<FunctionKey>& keys, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// A key was clicked, or its shortcut was pressed while the bar was enabled.
    void pressed(const FunctionKey& key);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Row = QList<QPushButton*>;

    void addKey(const FunctionKey& key);
    QList<Row> rows(int width) const;
    QList<Row> inRows(int count) const;
    int keyHeight() const;
    void arrange();

    Row m_keys;
};
