// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "basicform.h"
#include "documentfiltermodel.h"
#include "documentlistparams.h"
#include "documenttablemodel.h"
#include "positiontablemodel.h"

class QLabel;
class QPushButton;
class TalloKeyboard;
class TalloLineEdit;
class TalloTableView;

/// The suspended and the finished documents. Shows the positions of the current one, and a button for each thing that
/// can be done with it.
class DocumentListForm : public BasicForm
{
    Q_OBJECT

public:
    explicit DocumentListForm(const DocumentListParams& params, QObject* parent = nullptr);

private:
    using Pointer = DocumentListParams::Pointer;

    /// The outcome of the last act, shown while its document is the current one.
    struct Outcome {
        int document = 0; ///< its number; 0: there is no outcome
        QString text = {};
        const char* textRole = "hint";
    };

    void setUpTables();
    void setUpButtons();
    void nameControls();
    void load();
    void arrangeForKeyboard();
    void filter(const QString& text);
    void search(const QString& text);
    void showCurrent();
    void showHint();
    void showHint(const QString& text, const char* textRole);
    void rememberStop(const control::Action& action, EContext::Result result);

    /// Null when the list is empty.
    Pointer current() const;
    void makeCurrent(int number);

    void confirm();
    void resume();
    void returnSale();
    void voidDocument();
    void print();
    void act(const DocumentListParams::Act& act);
    void leave();

    DocumentListParams m_params;
    DocumentTableModel m_documents;
    DocumentFilterModel m_filtered;
    PositionTableModel m_positions;
    TalloTableView* m_table;
    TalloTableView* m_positionsTable;
    TalloLineEdit* m_filter;
    QLabel* m_hint;
    QPushButton* m_resume;
    QPushButton* m_return;
    QPushButton* m_void;
    QPushButton* m_print;
    Outcome m_outcome;
};
