// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"
#include "tr.h"

#include <QStringList>

/// Prints a plug-in's reports in the way in which the register prints receipts.
///
/// The host puts a printer of its own into the Singleton. This one prints nothing. Main thread.
class REGISTERPLATFORM_EXPORT ReportPrinter
{
public:
    ReportPrinter() = default;
    virtual ~ReportPrinter();
    Q_DISABLE_COPY_MOVE(ReportPrinter)

    /// Prints a slip with the pharmacy, the title, the time and the lines. Blocks until it is done. A failure is
    /// logged, and shown to the cashier before this returns.
    ///
    /// @param title the heading
    /// @param lines plain text. One that is too wide for the paper, 40 characters for example, goes on in the next
    /// line.
    ///        Blanks at its beginning indent the whole of it. An empty one leaves a line free
    virtual void print(const tr::Tr& title, const QStringList& lines);
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ReportPrinter>;
