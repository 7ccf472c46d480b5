// SPDX-License-Identifier: MIT
#include "scanfilter.h"

#include <QKeyEvent>
#include <QLineEdit>

ScanFilter::ScanFilter(QLineEdit& field)
    : QObject(&field)
    , m_field(field)
    , m_recognizer(ScanRecognizer::configured())
{
    watch(field);
}

void ScanFilter::watch(QWidget& widget)
{
    widget.setProperty(ScanRecognizer::recognizesScans, true);
    widget.installEventFilter(this);
}

bool ScanFilter::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto scan = m_recognizer.take(*static_cast<QKeyEvent*>(event), m_field.text());
    if (!scan) {
        return false;
    }
    m_field.setText(scan->fieldBefore);
    emit scanned(scan->text);
    return true;
}
