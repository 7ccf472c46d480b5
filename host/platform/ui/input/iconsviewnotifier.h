// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QEvent>
#include <QObject>

/// Tells the status line that one of its icons has to change: the keyboard layout, for example.
class REGISTERPLATFORM_EXPORT IconsViewNotifier : public QObject
{
    Q_OBJECT

public:
    explicit IconsViewNotifier(QObject* parent = nullptr);

public slots:
    /// Passes the event on through iconsChanged(); null is passed over.
    void notifyIcons(QEvent* event);

signals:
    void iconsChanged(QEvent::Type type, QObject* source);
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<IconsViewNotifier>;
