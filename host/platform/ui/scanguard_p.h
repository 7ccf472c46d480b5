// SPDX-License-Identifier: MIT
#pragma once

#include "scanrecognizer_p.h"

#include <QObject>

class GraphicalUserInterface;
class QKeyEvent;

/// Keeps the Return that ends a scan away from forms that expect none: it is not the cashier's. The characters pass.
///
/// A form expects scans when it was shown with EInput::Scanner, or when the focus is in a field that tells scans
/// itself; a button never does. Watches the keys as they come from the window system, before any form sees them.
class ScanGuard : public QObject
{
public:
    explicit ScanGuard(const GraphicalUserInterface& gui);

    /// To be set, true, on a field whose form takes or refuses scans itself.
    static constexpr char recognizesScans[] = "recognizesScans";

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool endsUnexpectedScan(const QKeyEvent& key);
    bool expectsScan() const;

    const GraphicalUserInterface& m_gui;
    ScanRecognizer m_recognizer;
};
