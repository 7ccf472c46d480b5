// SPDX-License-Identifier: MIT
#include "router.h"

#include "percentdecoding.h"

namespace emulator
{
Router::Router(const QString& prefix)
    : m_prefix(prefix.split(QLatin1Char('/'), Qt::SkipEmptyParts))
{
}

Route Router::find(const QByteArray& path) const
{
    QStringList segments;
    for (const QByteArray& segment : path.mid(1).split('/')) {
        const auto decoded = decodePercent(segment);
        if (!decoded)
            return {};
        segments.append(*decoded);
    }
    if (!path.startsWith('/') || segments.mid(0, m_prefix.size()) != m_prefix)
        return {};
    segments = segments.mid(m_prefix.size());

    if (segments == QStringList{QStringLiteral("connect"), QStringLiteral("token")})
        return {Endpoint::Token, "POST", {}};
    if (segments == QStringList{QStringLiteral("MedicationPrescription"), QStringLiteral("$by-card")})
        return {Endpoint::PrescriptionsByCard, "GET", {}};
    if (segments.value(0) != QLatin1String("MedicationDispense"))
        return {};
    if (segments.size() == 2 && segments.at(1) == QLatin1String("$register"))
        return {Endpoint::DispenseRegistration, "POST", {}};
    if (segments.size() == 2 && segments.at(1) == QLatin1String("$set-as-error"))
        return {Endpoint::DispenseCancellation, "POST", {}};
    if (segments.size() == 3 && segments.at(2) == QLatin1String("$set-as-error"))
        return {Endpoint::DispenseCancellation, "POST", segments.at(1)};
    return {};
}
} // namespace emulator
