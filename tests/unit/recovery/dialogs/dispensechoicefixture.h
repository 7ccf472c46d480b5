// SPDX-License-Identifier: MIT
#pragma once

#include "dispensechoicedialog.h"

#include "actionqueuecontroller.h"
#include "configured.h"
#include "dispensechoiceformcreator.h"
#include "graphicaluserinterface.h"
#include "tallotableview.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

/// The dialog with its own layout, answered by a cashier with real keys and clicks.
class DispenseChoiceFixture : public ::testing::Test
{
protected:
    using Act = std::function<void(QWidget& form)>;

    DispenseChoiceFixture()
    {
        config.set(u"GUI:layouts"_s, QString::fromUtf8(RECOVERY_LAYOUTS));
        setTouchMode(false);
        gui.object.addFormCreator(QSharedPointer<DispenseChoiceFormCreator>::create());
    }

    void setTouchMode(bool isTouch) { config.set(u"GUI:touchMode"_s, isTouch ? u"true"_s : u"false"_s); }

    /// Asks, and does `act` when the form has the focus. A form that `act` leaves open is cancelled.
    DispenseChoice ask(const DispenseChoiceParams& params, const Act& act)
    {
        isAnswered = false;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
            const auto form = gui.object.topForm();
            if (!form || !form->rootWidget()->isActiveWindow()) {
                return;
            }
            poll.stop();
            act(*form->rootWidget());
            isAnswered = !gui.object.topForm();
            gui.object.cancelForms();
        });
        poll.start();
        return DispenseChoiceDialog::create()->ask(params);
    }

    static void press(const QList<Qt::Key>& keys)
    {
        for (const Qt::Key key : keys) {
            QTest::keyClick(QApplication::activeWindow()->windowHandle(), key);
        }
    }

    template <typename T>
    static T* widget(const QWidget& form, const QString& name)
    {
        auto* found = form.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << "no widget " << name.toStdString();
        return found;
    }
    static TalloTableView* table(const QWidget& form) { return widget<TalloTableView>(form, u"dispensesTable"_s); }

    /// An invented dispense, and two that may be it; the registry does not show the id of the second.
    static DispenseChoiceParams twoDispenses()
    {
        return {u"Амоксидар, капсулы 500 мг № 16"_s,
                u"4500-1"_s,
                u"10"_s,
                u"29.02.2024 12:30:05"_s,
                {{u"29.02.2024 12:30"_s, u"10"_s, u"Аптека № 7"_s, u"d-71"_s},
                 {u"29.02.2024"_s, u"10"_s, u"Аптека № 8"_s, {}}}};
    }
    static DispenseChoiceParams noDispenses()
    {
        DispenseChoiceParams params = twoDispenses();
        params.dispenses.clear();
        return params;
    }

    Configured config;
    Own<GraphicalUserInterface> gui;
    Own<ActionQueueController> controller;
    bool isAnswered = false; ///< by what the cashier did, before the form was cancelled
};
