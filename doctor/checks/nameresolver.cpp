// SPDX-License-Identifier: MIT
#include "nameresolver.h"

#include <QEventLoop>
#include <QHostInfo>
#include <QTimer>

namespace doctor
{

ResolvedName NameResolver::resolve(const QString& host, int milliseconds) const
{
    ResolvedName resolved;
    resolved.isInTime = false;
    QEventLoop waiting;
    const int lookUp = QHostInfo::lookupHost(host, &waiting, [&](const QHostInfo& found) {
        resolved = {found.addresses(), true};
        waiting.quit();
    });
    QTimer::singleShot(milliseconds, &waiting, &QEventLoop::quit);
    waiting.exec();
    QHostInfo::abortHostLookup(lookUp);
    return resolved;
}

} // namespace doctor
