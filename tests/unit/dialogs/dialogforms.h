// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "basicexception.h"
#include "basicform.h"
#include "configured.h"
#include "electronicprescription.h"
#include "patient.h"

#include <QSharedPointer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

/// Takes actions without running them.
class RecordingQueue : public ActionQueueController
{
public:
    void enqueue(const control::Action& action, bool immediately) override { queued.append({action, immediately}); }

    QList<std::pair<control::Action, bool>> queued;
};

/// The plug-in's forms from its own layouts, with a configuration and an action queue of the test's own.
class DialogForms : public ::testing::Test
{
protected:
    DialogForms();
    ~DialogForms() override;

    void setTouchMode(bool isTouch);

    /// Has the form shown as the register does: its root first, then show().
    static void open(BasicForm& form);

    template <typename T>
    static T* widget(const BasicForm& form, const QString& name)
    {
        auto* found = form.rootWidget()->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << "no widget " << name.toStdString();
        return found;
    }

    /// The text of a label or a button.
    static QString text(const BasicForm& form, const QString& name);

    /// What the one action that was queued answers; fails when there is none, more than one, or another action.
    std::pair<QString, QVariant> answer() const;

    /// Puts a changed copy of a layout before the plug-in's own: `widget` has another name there.
    void loseWidget(const QString& layout, const QString& widget);

    /// Takes `widget` out of the layout, and expects that the form cannot be made and says why.
    void expectNeeds(const QString& layout, const QString& widget, const std::function<void()>& makeForm);
    /// The same with a slider in the place of `widget`, which has to be a `className`.
    void expectNeedsClass(const QString& layout, const QString& widget, const QString& className,
                          const std::function<void()>& makeForm);

    /// Collects what forms report of their layouts, instead of having it thrown.
    void collectLayoutFaults();

    /// An invented patient.
    static QSharedPointer<Patient> patient();
    /// A prescription of that non-proprietary name, without anything else.
    static QSharedPointer<ElectronicPrescription> prescription(const QString& inn);

    Configured config;
    RecordingQueue queue;
    Own<control::ActionFactory> actionFactory;
    QStringList layoutFaults;

private:
    void changeLayout(const QString& layout, const QString& pattern, const QString& replacement);

    QTemporaryDir m_changedLayouts;
    InPlace<ActionQueueController> m_queueInPlace{&queue};
};
