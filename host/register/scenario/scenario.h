// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QByteArray>
#include <QJsonValue>
#include <QList>
#include <QString>

/// One step of a scenario; docs/scenarios.md describes the kinds.
struct ScenarioStep {
    enum class Kind {
        Wait,         ///< `target` is visible
        Click,        ///< on `target`
        Key,          ///< `text` is the key's name; `times` presses
        Type,         ///< `text` into `target`; empty: into the widget with the focus
        Scan,         ///< like Type, but as a scanner sends it, with Return at the end
        Row,          ///< row `times` of table `target` becomes current
        Expect,       ///< the text of `target` is `text`
        Contains,     ///< the text of `target` contains `text`
        Enabled,      ///< `target` is enabled, or not: `value`
        Visible,      ///< `target` is visible, or not: `value`
        OpenDocument, ///< the saved open document has the members of `value`
        SavedFile,    ///< the saved document in the file `target` of the data folder has the members of `value`
        Printed,      ///< the printed receipt of document number `times` contains `text`
        Screenshot,   ///< `text` is the picture's name
        Say,          ///< writes `text` to stdout
        Print,        ///< writes the text of `target` to stdout
        Close,        ///< the window is asked to close
    };

    Kind kind = Kind::Wait;
    QString target;
    QString text;
    QJsonValue value;
    int times = 1;
    int seconds = 10; ///< the time limit
    QString source;   ///< the step in JSON, for messages
};

/// Reads the steps of a scenario from a file.
Expected<QList<ScenarioStep>> readScenario(const QString& file);

/// Reads the steps of a scenario: `{"steps": […]}`. A failure names the first wrong step.
Expected<QList<ScenarioStep>> parseScenario(const QByteArray& json);
