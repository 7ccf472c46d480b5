// SPDX-License-Identifier: MIT
#pragma once

#include "scenario.h"
#include "scenariochecks.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

/// Plays a scenario on the real window: posts the keys and clicks of a cashier, and checks what the window shows.
///
/// It never waits inside a call, so that it goes on while dialogs run their own event loops. A step that is not done
/// within its time limit fails the scenario: a message on stderr names the step, and `failure.png` shows the window.
class ScenarioPlayer : public QObject
{
    Q_OBJECT

public:
    /// @param screenshots folder for the pictures
    /// @param dataFolder the register's, with saved documents and printed receipts
    ScenarioPlayer(const QList<ScenarioStep>& steps, const QString& screenshots, const QString& dataFolder,
                   QObject* parent = nullptr);

    void start();

signals:
    /// @param passed false when a step failed
    void finished(bool passed);

private:
    void tick();
    void scheduleTick(std::chrono::milliseconds delay);
    void beginStep();
    void fail(const QString& why);

    StepResult perform(const ScenarioStep& step);
    static StepResult printText(const ScenarioStep& step);
    StepResult performInput(const ScenarioStep& step);
    StepResult press(const ScenarioStep& step);
    StepResult click(const ScenarioStep& step);
    StepResult enter(const ScenarioStep& step);
    StepResult makeCurrent(const ScenarioStep& step);
    StepResult takePicture(const QString& name) const;

    QList<ScenarioStep> m_steps;
    QString m_screenshots;
    ScenarioChecks m_checks;
    qsizetype m_current = -1;
    QList<std::function<bool()>> m_input; ///< the remaining key presses of the current step
    std::chrono::milliseconds m_pace{0};  ///< the time between them
    bool m_isInputPrepared = false;
    QElapsedTimer m_stepTime;
};
