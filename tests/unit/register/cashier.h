// SPDX-License-Identifier: MIT
#pragma once

#include "graphicaluserinterface.h"

#include <QList>
#include <QObject>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

/// Answers the forms that open while a test waits in a call. The acts are done in order, each as soon as a form of its
/// name is on top.
class Cashier : public QObject
{
public:
    using Act = std::function<void(QWidget& root)>;

    /// @param formName object name of the form's root widget
    void onForm(const QString& formName, const Act& act)
    {
        m_acts.append({formName, act});
        if (m_acts.size() == 1) {
            look();
        }
    }
    bool isDone() const { return m_acts.isEmpty(); }

private:
    void look()
    {
        QTimer::singleShot(1, this, [this] {
            const auto form = Singleton<GraphicalUserInterface>::get()->topForm();
            if (m_acts.isEmpty()) {
                return;
            }
            if (!form || !form->rootWidget() || form->rootWidget()->objectName() != m_acts.constFirst().first) {
                look();
                return;
            }
            const Act act = m_acts.takeFirst().second;
            if (!m_acts.isEmpty()) {
                look();
            }
            act(*form->rootWidget());
        });
    }

    QList<std::pair<QString, Act>> m_acts;
};
