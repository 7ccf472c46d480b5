// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "menuparams.h"

#include <QList>
#include <QTimer>

class QKeyEvent;
class QPushButton;

/// The menu: a numbered button for each command. A digit chooses one, unless it is part of a scan. A command that is
/// not possible now is disabled and shows why.
///
/// The form answers with "entry", the index of the chosen command; every other way out dismisses it.
class MenuForm : public BasicDialogForm
{
    Q_OBJECT

public:
    explicit MenuForm(const MenuParams& params, QObject* parent = nullptr);

    void show() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addEntry(const MenuParams::Entry& entry);
    bool takeDigit(const QKeyEvent& key);
    void chooseByDigit();

    QList<QPushButton*> m_entries;
    QTimer m_quiet;  ///< active while a scanner's next key may still come
    int m_digit = 0; ///< pressed without another key before it; 0: none
};
