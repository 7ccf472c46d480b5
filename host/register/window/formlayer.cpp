// SPDX-License-Identifier: MIT
#include "formlayer.h"

#include "basicdialogform.h"

#include <QVBoxLayout>

FormLayer::FormLayer(BasicForm& form, QWidget* parent)
    : QWidget(parent)
    , m_form(&form)
    , m_isDialog(qobject_cast<BasicDialogForm*>(&form) != nullptr)
    , m_root(form.rootWidget())
{
    if (!m_root) {
        return;
    }
    if (m_isDialog) {
        m_root->setParent(this);
    } else {
        setAutoFillBackground(true);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_root);
    }
    m_root->show();
}

void FormLayer::release()
{
    if (!m_root) {
        return;
    }
    m_root->hide();
    m_root->setParent(nullptr);
}
