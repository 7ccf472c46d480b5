// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QString>

/// Sends the keys of a scanner: 10 ms apart, with Return at the end.
inline void scanInto(QObject& receiver, const QString& barcode)
{
    quint64 time = 1000;
    for (const QChar character : barcode + u'\r') {
        const int code = character == u'\r' ? int(Qt::Key_Return) : character.unicode();
        QKeyEvent key(QEvent::KeyPress, code, Qt::NoModifier, character);
        key.setTimestamp(time += 10);
        QCoreApplication::sendEvent(&receiver, &key);
    }
}
