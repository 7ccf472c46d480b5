// SPDX-License-Identifier: MIT
#pragma once

#include "checkresult.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace doctor
{

/// For a person: program, version, time and configuration, for a letter that the output goes into.
QString headOf(const QString& configFile);

/// For a person: a line for the result and, when there is something to do, a second one that says whom to ask for what.
/// Both end in a line break.
QString lineOf(const CheckResult& result);

/// For a person: how many results are good, warnings, wrong and not checked, and the exit status.
QString summaryOf(const QList<CheckResult>& results);

/// For programs: one JSON object, docs/doctor.md describes its members.
QByteArray jsonOf(const QList<CheckResult>& results);

} // namespace doctor
