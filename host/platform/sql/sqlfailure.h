// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "failure.h"

#include <QSqlError>

#include <chrono>

/// A database's error as the end of a sentence. It is never empty: a driver that gives no reason gets one here.
REGISTERPLATFORM_EXPORT Failure sqlFailure(const QSqlError& error);

/// A server did not answer in time.
REGISTERPLATFORM_EXPORT Failure silentServer(std::chrono::seconds timeout);
