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
/// - Return and Enter click the button that has the focus; elsewhere they emit ok() or, when nobody listens to it,
///   click the form's default button. A key that is held down does not repeat this.
/// - Esc, closing the window, and the register's own "cancel what is open" emit cancel(). The close itself is
///   ignored: the form goes when it has answered. When nobody listens to cancel(), the form is dismissed.
/// - Up, Down, PageUp and PageDown in the line edit move the current row of the table view; letters typed into the
///   table view go to the line edit, which takes the focus.
/// - A double click on a row of the table view emits ok().
class REGISTERPLATFORM_EXPORT DialogEventFilter : public QObject
{
    Q_OBJECT

public:
    explicit DialogEventFilter(QObject* parent = nullptr);

    /// Null takes the former one away.
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
