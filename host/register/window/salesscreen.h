// SPDX-License-Identifier: MIT
#pragma once

#include "formhelp.h"
#include "functionkey.h"
#include "paymentpanel.h"
#include "positionmarks.h"
#include "positiontablemodel.h"
#include "till.h"

#include <QList>
#include <QSharedPointer>
#include <QWidget>

class QLabel;
class SearchPanel;
class TalloTableView;

/// The open document: its positions, the search for goods or the payment below them, and the function keys.
class SalesScreen : public QWidget
{
    Q_OBJECT

public:
    /// @param till, marks not owned
    SalesScreen(Till& till, const PositionMarks& marks, const QList<FunctionKey>& keys, QWidget* parent = nullptr);

    /// Shows the document as it is now.
    void refresh();

    /// The keys that work now, and what comes next.
    FormHelp help() const;
    QString heading() const;

signals:
    /// The document is no longer open.
    void ended(const Document& document);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* createHeader();
    QWidget* createTable();
    void createBeginning();
    QString screen() const;
    QWidget* createSearch(const QList<FunctionKey>& keys);
    QWidget* createPayment(const QList<FunctionKey>& keys);
    void showPositions();
    int rowAfter(int formerRow, int number) const;
    void makeCurrent(int positionNumber);
    void scrollToCurrent();
    void showPhase();
    PaymentPanel::Amounts amounts() const;
    void addGoods(const QString& search);
    void goOn();
    void pay(PaymentMethod method);
    void goBack();
    void type(QKeyEvent& event);
    void press(const FunctionKey& key);
    void give(const control::Action& action);
    void moveRow(int by);

    Till& m_till;
    const PositionMarks& m_marks;
    PositionTableModel m_model;
    QList<FunctionKey> m_keys;
    QLabel* m_documentNumber = nullptr;
    QLabel* m_documentInfo = nullptr;
    TalloTableView* m_table = nullptr;
    QLabel* m_beginning = nullptr; ///< how to begin, while no document is open
    SearchPanel* m_search = nullptr;
    PaymentPanel* m_payment = nullptr;
    QSharedPointer<Document> m_shown;
    int m_positionCount = 0;
};
