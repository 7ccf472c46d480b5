// SPDX-License-Identifier: MIT
#pragma once

#include "actionhost.h"
#include "cashier.h"
#include "tillfixture.h"

#include <QPushButton>
#include <QTimer>

#include <stdexcept>
#include <string>

using namespace Qt::StringLiterals;

/// A register that executes commands, and a cashier who answers its forms.
class CommandFixture : public TillFixture
{
protected:
    CommandFixture()
    {
        QObject::connect(&m_watchdog, &QTimer::timeout, [this] {
            if (!gui.object.topForm()) {
                return;
            }
            ADD_FAILURE() << "An unexpected form waits for an answer";
            gui.object.cancelForms();
            m_watchdog.setInterval(1); // the next one is not waited for
        });
        m_watchdog.start(20'000);
    }

    EContext::Result run(control::EActionType type, const QVariantMap& arguments = {})
    {
        action = control::Action(type);
        for (auto argument = arguments.cbegin(); argument != arguments.cend(); ++argument) {
            action.insert(argument.key(), argument.value());
        }
        return controller.object.execute(action);
    }
    static QVariantMap positionNumber(int number) { return {{u"positionNumber"_s, number}}; }
    static void press(QWidget& root, const char* button)
    {
        root.findChild<QPushButton*>(QLatin1StringView(button))->click();
    }
    /// Has the cashier press that button at the next question.
    void answerQuestion(const char* button)
    {
        cashier.onForm(u"questionForm"_s, [button](QWidget& root) { press(root, button); });
    }
    /// Adds a hook before an action in a context.
    void addHook(EContext::Code context, control::EActionType type, const ActionTrigger::Function& hook)
    {
        controller.object.host().addTrigger({context, type, ActionTrigger::Before, hook, ActionTrigger::Any, 1});
    }
    /// Sells an article and returns the number of the sale.
    int sold()
    {
        till->add(article(amoxidar, 2));
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{5000})}));
        return number;
    }
    /// Suspends a document and returns its number.
    int suspend()
    {
        till->add(article(amoxidar));
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->suspend());
        return number;
    }
    /// A document of the archive; throws, which fails the test, when there is none.
    QSharedPointer<Document> archived(int number) const
    {
        auto document = till->archive().find(number);
        if (!document) {
            throw std::out_of_range("no document " + std::to_string(number));
        }
        return document;
    }

    control::Action action;
    Cashier cashier;

private:
    QTimer m_watchdog; ///< only ends a test that fails
};
