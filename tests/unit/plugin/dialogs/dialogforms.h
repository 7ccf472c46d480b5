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

/// Records actions without running them.
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

    /// Shows the form as the register does: its root first, then show().
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

    /// The answer in the one action that was queued. Fails when there is none, more than one, or another action.
    std::pair<QString, QVariant> answer() const;

    /// Puts a changed copy of a layout before the plug-in's own: what the pattern finds is replaced. Changes add up.
    void changeLayout(const QString& layout, const QString& pattern, const QString& replacement);
    /// Takes a widget out of the layout: it has another name there.
    void loseWidget(const QString& layout, const QString& widget);

    /// Takes `widget` out of the layout, and expects that the form cannot be made and says why.
    void expectNeeds(const QString& layout, const QString& widget, const std::function<void()>& makeForm);
    /// Makes a slider of `widget`.
    void makeSlider(const QString& layout, const QString& widget);
    /// Makes a slider of `widget`, which has to be a `className`, and expects that the form cannot be made and says
    /// why.
    void expectNeedsClass(const QString& layout, const QString& widget, const QString& className,
                          const std::function<void()>& makeForm);

    /// Has every label of the layout take its text as markup.
    void askForRichText(const QString& layout);
    /// Every label that shows a text takes it as plain text.
    static void expectPlainTexts(const BasicForm& form);

    /// Collects the faults of layouts that forms report, instead of having them thrown.
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
    QTemporaryDir m_changedLayouts;
    InPlace<ActionQueueController> m_queueInPlace{&queue};
};
