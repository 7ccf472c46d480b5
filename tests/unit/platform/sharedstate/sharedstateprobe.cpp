// SPDX-License-Identifier: MIT
#include "sharedstateprobe.h"

#include "basicexception.h"

QMap<QString, const void*> SharedStateModule::sharedState() const
{
    return sharedStateSeenHere();
}

QString SharedStateModule::configured(const QString& key) const
{
    return Singleton<Config>::get()->getString(key);
}

QDateTime SharedStateModule::now() const
{
    return CurrentTime::create()->current();
}

QSharedPointer<AbstractDocument> SharedStateModule::currentDocument() const
{
    return getDocument();
}

void SharedStateModule::throwBasicException(const tr::Tr& message) const
{
    throw BasicException(message);
}
