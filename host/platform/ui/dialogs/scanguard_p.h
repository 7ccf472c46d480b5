// SPDX-License-Identifier: MIT
#pragma once

#include "scanrecognizer.h"

#include <QObject>

class GraphicalUserInterface;

/// Has a scan replace the text of the field that has the focus, without the scanner's prefix and suffix. A field that
/// takes scans itself (ScanRecognizer::recognizesScans) is left alone.
///
/// Keeps the Return that ends a scan from forms that expect none: the cashier did not press it.
/// A form expects scans when it was shown with EInput::Scanner, or when the focus is in a field that takes scans itself
/// (ScanRecognizer::recognizesScans). A button never does. The guard sees the keys as they come from the window system,
/// before any form.
class ScanGuard : public QObject
{
public:
    explicit ScanGuard(const GraphicalUserInterface& gui);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void replaceWith(const QString& code);
    bool isScanExpected() const;

    const GraphicalUserInterface& m_gui;
    ScanRecognizer m_recognizer;
};
