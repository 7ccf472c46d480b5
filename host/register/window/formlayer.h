// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class BasicForm;

/// Holds one form in the register's window. A form fills the layer; a dialog places itself in its middle, above a veil.
/// The form keeps owning its widgets.
class FormLayer : public QWidget
{
    Q_OBJECT

public:
    FormLayer(BasicForm& form, QWidget* parent);

    /// Gives the form its widgets back.
    void release();

    const BasicForm* form() const { return m_form; }
    /// What lies below still shows around the form.
    bool isDialog() const { return m_isDialog; }

private:
    const BasicForm* m_form;
    bool m_isDialog;
    QPointer<QWidget> m_root;
};
