// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

/// What the register is started with.
struct CommandLine {
    /// What parse() found beside the options.
    enum class Outcome { Run, Shown, Wrong };

    Outcome outcome = Outcome::Run;
    QString message; ///< Told: the help or the version; Wrong: what is wrong with the options

    QString config;
    QString dataFolder;
    QString pluginFolder;
    QString layoutFolders; ///< by colon; empty: none
    bool touch = false;
    bool demoData = false;
    QSize windowSize;    ///< empty: the whole screen
    QString scenario;    ///< empty: none is played
    QString screenshots; ///< folder

    /// @param arguments as QCoreApplication gives them, the program's name first
    static CommandLine parse(const QStringList& arguments);
};
