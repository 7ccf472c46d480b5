// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QEvent>
#include <QObject>

/// Notifies the status line that one of its icons has to change, for example the keyboard layout.
class REGISTERPLATFORM_EXPORT IconsViewNotifier : public QObject
{
    Q_OBJECT

public:
    explicit IconsViewNotifier(QObject* parent = nullptr);

public slots:
    /// Emits iconsChanged() for an event. Null is ignored.
    void notifyIcons(QEvent* event);

signals:
    void iconsChanged(QEvent::Type type, QObject* source);
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<IconsViewNotifier>;
