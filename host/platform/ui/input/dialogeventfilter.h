// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QObject>
#include <QPointer>

class QKeyEvent;

/// Turns a form's keys into ok() and cancel(). To be installed on the form's root widget.
///
/// - Return and Enter click the button that has the focus. Elsewhere they emit ok(), or click the form's default button
///   when ok() is not connected. A key that is held down does this once.
/// - Esc, closing the window and GraphicalUserInterface::cancelForms() emit cancel(). The window stays open until the
///   form has answered. When cancel() is not connected, the form is dismissed.
/// - Up, Down, PageUp and PageDown in the line edit move the current row of the table view; letters typed into the
///   table view go to the line edit, which takes the focus.
/// - A double click on a row of the table view emits ok().
class REGISTERPLATFORM_EXPORT DialogEventFilter : public QObject
{
    Q_OBJECT

public:
    explicit DialogEventFilter(QObject* parent = nullptr);

    /// Null removes the former one.
    void setTableView(TalloTableView* view);
    void setLineEdit(TalloLineEdit* edit);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void ok();
    void cancel();

private:
    bool cancelHeard();
    bool confirm(QWidget& widget);
    static bool passOn(const QKeyEvent& key, QWidget& receiver);

    QPointer<TalloTableView> m_tableView;
    QPointer<TalloLineEdit> m_lineEdit;
};
