// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "goodsselectionparams.h"
#include "goodstablemodel.h"

#include <functional>
#include <optional>

class QLabel;
class TalloLineEdit;
class TalloTableView;

/// The list of goods with a filter and the number of packs.
///
/// The form answers with "result", a SelectedGoods, and "data" 0; with "data" -1 when the cashier leaves.
class GoodsSelectionForm : public BasicForm
{
    Q_OBJECT

public:
    explicit GoodsSelectionForm(const GoodsSelectionParams& params, QObject* parent = nullptr);

private slots:
    void onChoose();
    void onCancel();
    void onFilterChanged(const QString& text);
    void onAmountButton(int change);
    void offerAll();

private:
    std::optional<int> typedPacks() const;
    void setUpTable();
    void setUpPacks();
    void setUpButtons();
    void nameControls();
    /// Makes the picked goods current, of all goods when they have another name than the wanted one.
    void offerAgain(const SelectedGoods& picked, const QString& medicineInfo);
    /// @return false when they are not in the list
    bool offerPicked(const SelectedGoods& picked);
    /// Shows a hint when they cannot be read. @return false then
    bool offerAllOrShow();
    void offerWanted(const QString& medicineInfo);
    void makeCurrent(int row);
    void searchScanned(const QString& barcode);
    /// Shows a hint when the filter leaves no goods, and clears it otherwise.
    void showIfNothingMatches();
    void showHint(const tr::Tr& hint);

    tr::Tr nothingFits(const QString& search) const;
    void showWhetherAllCanBeOffered(bool nothingMatches);

    GoodsTableModel m_goods;
    std::function<GoodsList()> m_allGoods;
    QString m_wantedName; ///< empty: all goods are offered
    TalloTableView* m_table;
    TalloLineEdit* m_filter;
    TalloLineEdit* m_packs;
    QLabel* m_hint;
};
