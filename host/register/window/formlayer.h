// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class BasicForm;

/// Holds one form in the register's window. A form fills the layer; a dialog is in its middle, above a veil. The form
/// still owns its widgets.
class FormLayer : public QWidget
{
    Q_OBJECT

public:
    FormLayer(BasicForm& form, QWidget* parent);

    /// Returns the widgets to the form.
    void release();

    const BasicForm* form() const { return m_form; }
    /// True when the widgets below remain visible around the form.
    bool isDialog() const { return m_isDialog; }

private:
    const BasicForm* m_form;
    bool m_isDialog;
    QPointer<QWidget> m_root;
};
