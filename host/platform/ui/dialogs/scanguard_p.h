// SPDX-License-Identifier: MIT
#pragma once

#include "scanrecognizer.h"

#include <QObject>

class GraphicalUserInterface;
class QKeyEvent;

/// Keeps the Return that ends a scan away from forms that expect none: it is not the cashier's. The characters pass.
///
/// A form expects scans when it was shown with EInput::Scanner, or when the focus is in a field that tells scans
/// itself (ScanRecognizer::recognizesScans); a button never does. Watches the keys as they come from the window system,
/// before any form sees them.
class ScanGuard : public QObject
{
public:
    explicit ScanGuard(const GraphicalUserInterface& gui);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool endsUnexpectedScan(const QKeyEvent& key);
    bool isScanExpected() const;

    const GraphicalUserInterface& m_gui;
    ScanRecognizer m_recognizer;
};
