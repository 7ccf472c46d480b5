// SPDX-License-Identifier: MIT
#pragma once

#include "scenario.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

/// Plays a scenario on the real window: posts the keys and clicks of a cashier and looks at what comes of them.
///
/// It never waits inside a call, so that it goes on while dialogs run their own event loops. A step that does not come
/// true in its time fails the scenario: a message on stderr names it and a picture `failure.png` shows the window.
class ScenarioPlayer : public QObject
{
    Q_OBJECT

public:
    /// @param screenshots folder for the pictures
    /// @param dataFolder the register's, with the saved documents and printed documents
    ScenarioPlayer(const QList<ScenarioStep>& steps, const QString& screenshots, const QString& dataFolder,
                   QObject* parent = nullptr);

    void start();

signals:
    /// The last step is done, or one failed: then `held` is false.
    void finished(bool held);

private:
    /// What came of looking at a step.
    struct Look {
        bool done = false;
        QString why; ///< it is not done
    };

    void tick();
    void scheduleTick(std::chrono::milliseconds delay);
    void beginStep();
    void fail(const QString& why);
    void end(bool held);

    Look perform(const ScenarioStep& step);
    Look performInput(const ScenarioStep& step);
    Look press(const ScenarioStep& step);
    Look click(const ScenarioStep& step);
    Look enter(const ScenarioStep& step);
    Look makeCurrent(const ScenarioStep& step);
    Look compareText(const ScenarioStep& step) const;
    Look compareState(const ScenarioStep& step) const;
    Look compareDocument(const QString& file, const QJsonValue& expected) const;
    Look comparePrinted(const ScenarioStep& step) const;
    Look takePicture(const QString& name) const;

    static QWidget* visibleWidget(const QString& name);
    static Look missing(const QString& name);

    QList<ScenarioStep> m_steps;
    QString m_screenshots;
    QString m_dataFolder;
    qsizetype m_current = -1;
    QList<std::function<bool()>> m_input; ///< presses of the current step that are still to come
    std::chrono::milliseconds m_pace{0};  ///< between them
    bool m_inputMade = false;
    QElapsedTimer m_since;
};
