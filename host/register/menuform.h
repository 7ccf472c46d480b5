// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "menuparams.h"

#include <QList>

class QKeyEvent;
class QPushButton;

/// The menu: a button for each command, numbered; a digit chooses. Commands that are not possible now say why.
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
    bool chooseByDigit(const QKeyEvent& key);

    QList<QPushButton*> m_entries;
};
