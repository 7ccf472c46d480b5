// SPDX-License-Identifier: MIT
#pragma once

#include "examination.h"

#include <QString>
#include <QStringList>

namespace doctor
{

/// What the program is asked to do.
struct CommandLine {
    enum class Outcome {
        Run,
        Shown, ///< show the help or the version, and end
        Wrong, ///< report wrong options, and end
    };

    Outcome outcome = Outcome::Run;
    QString message; ///< what to show or to report

    ExaminationRequest request = {};
    bool wantsJson = false;

    /// @param arguments QCoreApplication::arguments(), with the program's name first
    static CommandLine parse(const QStringList& arguments);
};

} // namespace doctor
