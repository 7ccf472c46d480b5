// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class BasicForm;

/// Stands behind every other filter of a form's widgets.
///
/// Closing the root, or Esc that nobody took, dismisses the form. Return or Enter that is held down presses no button:
/// it was meant for the form before this one.
class FormGuard : public QObject
{
public:
    explicit FormGuard(BasicForm& form);

    /// Watches the form's root and its buttons. To be called before anybody else installs a filter there.
    void watch(QWidget& root);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    BasicForm& m_form;
};
