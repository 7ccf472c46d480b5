// SPDX-License-Identifier: MIT
#pragma once

#include "documentwatcher.h"
#include "sharedstate.h"

#include <QObject>

class SharedStateModule : public QObject, public SharedStateProbe, private DocumentWatcher
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID SharedStateProbe_iid)
    Q_INTERFACES(SharedStateProbe)

public:
    QMap<QString, const void*> sharedState() const override;
    QString configured(const QString& key) const override;
    QDateTime now() const override;
    QSharedPointer<AbstractDocument> currentDocument() const override;
    [[noreturn]] void throwBasicException(const tr::Tr& message) const override;
};
