// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "dispensechoicedialog.h"

class QPushButton;
class TalloTableView;

/// Lists the dispenses that the registry holds of a prescription; the last row says that none of them is the one that
/// is looked for. Without any, the row above it says that the registry holds it all the same. Answers "data", the
/// chosen row; every other way out dismisses the form.
///
/// A wrong choice books a dispense twice, or not at all. So no row is chosen at first, and a Return alone does nothing:
/// a key chooses a row, another one confirms it. Letters and digits choose no row either.
///
/// Layout: "dispensechoice.ui".
class DispenseChoiceForm : public BasicForm
{
    Q_OBJECT

public:
    /// Throws BasicException when the layout lacks a required widget.
    explicit DispenseChoiceForm(const DispenseChoiceParams& params, QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showTexts(const DispenseChoiceParams& params);
    void setUpTable(const QList<DispenseChoiceRow>& dispenses);
    void setUpButtons();
    void nameControls();
    /// The button confirms a row, so it works when one is chosen.
    void showWhetherChosen();
    void confirm();

    TalloTableView* m_table = nullptr;
    QPushButton* m_confirm = nullptr;
};
