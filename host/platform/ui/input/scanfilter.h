// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "scanrecognizer.h"

#include <QObject>

class QLineEdit;

/// Takes scans out of a field. A scanner types into the field like a keyboard. When the scan ends, the field holds
/// again what it held before, scanned() is emitted, and the Return of the scan goes no further.
///
/// Owner: the field. The last event filter to be installed is the first to see a key: to be made after the others.
class REGISTERPLATFORM_EXPORT ScanFilter : public QObject
{
    Q_OBJECT

public:
    /// Knows the scanner of the configuration, see ScanRecognizer::configured().
    explicit ScanFilter(QLineEdit& field);

    /// Watches another widget, too, for example a button that may have the focus when a scan comes.
    void watch(QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// @param code without prefix, suffix and control characters
    void scanned(const QString& code);

private:
    QLineEdit& m_field;
    ScanRecognizer m_recognizer;
};
