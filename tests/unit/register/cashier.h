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
/// name is on top, or as soon as its condition holds.
class Cashier : public QObject
{
public:
    using Act = std::function<void(QWidget& root)>;

    /// @param formName object name of the form's root widget
    void onForm(const QString& formName, const Act& act)
    {
        when([formName] { return isOnTop(formName); },
             [act] { act(*Singleton<GraphicalUserInterface>::get()->topForm()->rootWidget()); });
    }
    void when(const std::function<bool()>& condition, const std::function<void()>& act)
    {
        m_acts.append({condition, act});
        if (m_acts.size() == 1) {
            look();
        }
    }
    bool isDone() const { return m_acts.isEmpty(); }

    static bool isOnTop(const QString& formName)
    {
        const auto form = Singleton<GraphicalUserInterface>::get()->topForm();
        return form && form->rootWidget() && form->rootWidget()->objectName() == formName;
    }

private:
    void look()
    {
        QTimer::singleShot(1, this, [this] {
            if (m_acts.isEmpty()) {
                return;
            }
            if (!m_acts.constFirst().first()) {
                look();
                return;
            }
            const auto act = m_acts.takeFirst().second;
            if (!m_acts.isEmpty()) {
                look();
            }
            act();
        });
    }

    QList<std::pair<std::function<bool()>, std::function<void()>>> m_acts;
};
