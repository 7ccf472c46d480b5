// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal in the main thread. A program has one at most.
///
/// A signal that the program was started to ignore stays ignored, as SIGHUP under nohup. After the end of this object
/// none of them interrupts the program any more: it is about to end.
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignal(QObject* parent = nullptr);
    ~TerminationSignal() override;

signals:
    void received();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
