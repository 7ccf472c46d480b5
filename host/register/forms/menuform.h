// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "menuparams.h"

#include <QList>
#include <QTimer>

class QKeyEvent;
class QPushButton;

/// The menu: a button for each command, numbered; a digit chooses, unless it is part of a scan. Commands that are not
/// possible now say why.
///
/// Answers with "entry", the index of the chosen command; every other way out dismisses the form.
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
    QTimer m_quiet;  ///< runs while a scanner's next key may still come
    int m_digit = 0; ///< pressed alone; 0: none
};
