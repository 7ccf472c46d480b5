// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>

/// One step of a scenario; docs/scenarios.md tells the kinds.
struct ScenarioStep {
    enum class Kind {
        Wait,         ///< `target` is visible
        Click,        ///< on `target`
        Key,          ///< `text` is the key's name; `times` presses
        Type,         ///< `text` into `target`, or where the focus is
        Scan,         ///< `text` as a scanner sends it, Return included
        Row,          ///< row `times` of table `target` becomes current
        Expect,       ///< the text of `target` is `text`
        Contains,     ///< the text of `target` has `text` in it
        Enabled,      ///< `target` can be used, or not: `value`
        Visible,      ///< `target` can be seen, or not: `value`
        OpenDocument, ///< the saved open document has the members of `value`
        SavedFile,    ///< the saved document in the file `target` of the data folder has the members of `value`
        Printed,      ///< the printed document number `times` has `text` in it
        Screenshot,   ///< `text` is the picture's name
        Say,          ///< `text` is printed
        Print,        ///< the text of `target` is printed
        Close,        ///< the window is asked to close
    };

    Kind kind = Kind::Wait;
    QString target;
    QString text;
    QJsonValue value;
    int times = 1;
    int seconds = 10; ///< how long the step may take
    QString source;   ///< the step as it stands in the file, for messages
};

/// A scenario as it stands in a file.
struct ScenarioFile {
    QList<ScenarioStep> steps;
    QString error; ///< why the file cannot be played; empty: it can

    static ScenarioFile read(const QString& file);
    static ScenarioFile parse(const QByteArray& json);
};
