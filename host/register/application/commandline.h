// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

/// A folder that an option names.
struct NamedFolder {
    QString option; ///< "--plugins"
    QString path;
};

/// The command line of the register.
struct CommandLine {
    enum class Outcome {
        Run,   ///< start the register
        Check, ///< check the configuration, and end
        Shown, ///< show the help or the version, and end
        Wrong, ///< report wrong options, and end
    };

    Outcome outcome = Outcome::Run;
    QString message; ///< what to show or to report

    QString config;
    QString dataFolder;
    bool usesOwnDataFolder = false; ///< the user's own, which no option names: it is made when it is missing
    QString pluginFolder;
    QString layoutFolders; ///< separated by colons; empty: none
    bool touch = false;
    bool demoData = false;
    QSize windowSize;    ///< empty: the whole screen
    QString scenario;    ///< a file; empty: no scenario is played
    QString screenshots; ///< folder
    /// What --plugins, --layouts and --screenshots name. Each has to be there; none of them is made.
    QList<NamedFolder> namedFolders;

    /// The named folders that are not there or cannot be read.
    QList<NamedFolder> unusableFolders() const;

    /// @param arguments QCoreApplication::arguments(), with the program's name first
    static CommandLine parse(const QStringList& arguments);
};
