// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "electronicprescriptionchoiceparams.h"

#include <QModelIndex>
#include <QString>
#include <QVariant>

class ComplexFilterProxyModel;
class DialogEventFilter;
class ElectronicPrescriptionChoiceModel;
class TalloLineEdit;
class TalloTableView;

/// Lets the cashier choose one of a patient's prescriptions. Answers "data": its row in the record's list, or -1.
///
/// Layout: "electronicprescriptionchoice.ui". The text of the filter and the chosen row are remembered from one opening
/// to the next: a cashier who comes back finds the list unchanged.
class ElectronicPrescriptionChoiceForm : public BasicForm
{
    Q_OBJECT

public:
    /// Throws BasicException when the layout lacks a required widget.
    ElectronicPrescriptionChoiceForm(const ElectronicPrescriptionChoiceParams& params, QObject* parent);

    /// Opens with the remembered filter and its first row; without a filter with the remembered row.
    void show() override;

    /// Describes the table's columns.
    void setSettings() const;
    /// Answers "data" and ends the form.
    void sendAnswer(const QVariant& answer) const;

public slots:
    /// Answers with the current row; without one as onCancel().
    void onOk();
    /// Forgets filter and row, and answers -1.
    void onCancel();
    /// Shows only the rows whose non-proprietary name contains `text`; case is ignored.
    void filterTextChanged(const QString& text);
    /// Shows the details of the current row beside the table. An invalid index leaves them as they are.
    void onCurrentChanged(const QModelIndex& current, const QModelIndex& previous);

private:
    void setUpKeyboard();
    void setUpButtons();
    void setUpCaptions();
    void setUpInput();
    void setUpAccessibleNames();
    void applyFilter(const QString& text);
    /// Shows in "noMatchLabel", where the layout has it, that no row passes the filter.
    void showWhetherAnyMatches(const QString& text);
    void selectRow(int row);
    /// The model's index of a row of the table; invalid when there is no such row.
    QModelIndex sourceIndex(const QModelIndex& shown) const;

    ElectronicPrescriptionChoiceModel* m_model = nullptr;
    TalloTableView* m_tableView = nullptr;
    TalloLineEdit* m_filterField = nullptr;
    ComplexFilterProxyModel* m_proxyModel;
    DialogEventFilter* m_dialogEventFilter;

    static QString savedFilter;
    static int savedRow;
};
