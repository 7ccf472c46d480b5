// SPDX-License-Identifier: MIT
#pragma once

#include "scenario.h"

#include <QJsonValue>
#include <QString>

class QWidget;

/// The result of trying a step once.
struct StepResult {
    bool done = false;
    QString why; ///< the reason when it is not done
};

/// The visible widget with that name in the active window, an enabled one if there are several; null: there is none.
QWidget* visibleWidget(const QString& name);

/// The result of a step whose widget is not visible.
StepResult notVisible(const QString& name);

/// The steps that compare something with what the scenario expects.
class ScenarioChecks
{
public:
    /// @param dataFolder the register's, with saved documents and printed receipts
    explicit ScenarioChecks(const QString& dataFolder);

    /// Compares the text of a widget.
    StepResult text(const ScenarioStep& step) const;
    /// Compares whether a widget is enabled or visible.
    StepResult state(const ScenarioStep& step) const;
    /// Compares a saved document.
    /// @param file its file in the data folder
    StepResult document(const QString& file, const QJsonValue& expected) const;
    /// Looks for a text in a printed receipt.
    StepResult receipt(const ScenarioStep& step) const;

private:
    QString m_dataFolder;
};
