// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>

#include <chrono>
#include <functional>

/// Runs a job on a connection in a thread of its own, and returns when it is done. Until then the connection belongs to
/// that thread. After a moment the busy screen is shown, events run, and input is thrown away. Main thread.
/// @param connection one that nothing else uses meanwhile
/// @param limit how long it takes at most, for the cashier; the job sees to it
/// @param job throws nothing
void runBesideTheWindow(const QSqlDatabase& connection, std::chrono::seconds limit, const std::function<void()>& job);
