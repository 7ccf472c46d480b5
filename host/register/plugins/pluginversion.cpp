// SPDX-License-Identifier: MIT
#include "pluginversion.h"

#include "abstractplugin.h"

#include <QFile>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView ourVersion(REGISTER_SDK_VERSION);

Expected<void> compare(const QString& version, const QString& interfaceId)
{
    if (version == ourVersion) {
        return {};
    }
    return Failure{tr::Tr(u"pluginOtherVersion"_s, u"модуль собран для интерфейса модулей версии %1, а у кассы версия "
                                                   "%2. Установите модуль, собранный для этой кассы"_s)
                       .arg(version)
                       .arg(ourVersion),
                   u"interface %1, version %2; the register has version %3"_s.arg(interfaceId, version, ourVersion)};
}

/// What stands between the last but one and the last point; empty: the id has no version.
QString versionIn(const QString& interfaceId)
{
    return interfaceId.section(u'.', -2, -2);
}

/// The versions of the platform's library whose names are in a library. Names of needed libraries are plain text there.
QSet<QString> linkedVersions(const QString& library)
{
    static const QByteArray name("libregisterplatform.so.");
    QSet<QString> versions;
    QFile file(library);
    const uchar* content = file.open(QIODevice::ReadOnly) ? file.map(0, file.size()) : nullptr;
    if (!content) {
        return versions;
    }
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(content), file.size());
    for (qsizetype at = bytes.indexOf(name); at >= 0; at = bytes.indexOf(name, at)) {
        at += name.size();
        const qsizetype end = bytes.indexOf('\0', at);
        versions.insert(QString::fromLatin1(bytes.mid(at, std::clamp<qsizetype>(end - at, 0, 16))));
    }
    return versions;
}

} // namespace

Expected<void> checkPluginVersion(const QString& interfaceId, const QString& library)
{
    if (interfaceId.endsWith(".AbstractPlugin"_L1)) {
        return compare(versionIn(interfaceId), interfaceId);
    }
    const QSet<QString> linked = linkedVersions(library);
    if (linked.isEmpty()) {
        return foreignPlugin(u"interface "_s + interfaceId);
    }
    return compare(linked.contains(ourVersion) ? ourVersion : *linked.cbegin(), interfaceId);
}

Failure foreignPlugin(const QString& detail)
{
    return {{u"pluginForeign"_s, u"это не модуль кассы. Уберите файл из папки модулей"_s}, detail};
}
