// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class BasicForm;

/// The last event filter of a form's widgets: it sees the events that no other filter took.
///
/// Closing the root, or Esc, dismisses the form. A Return or Enter that is held down presses no button: it was meant
/// for the form before this one.
class FormGuard : public QObject
{
public:
    explicit FormGuard(BasicForm& form);

    /// Watches the form's root and its buttons. To be called before another filter is installed there.
    void watch(QWidget& root);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    BasicForm& m_form;
};
