// SPDX-License-Identifier: MIT
#include "router.h"

#include "percentdecoding.h"

using namespace Qt::StringLiterals;

namespace emulator
{
Router::Router(const QString& prefix)
    : m_prefix(prefix.split(u'/', Qt::SkipEmptyParts))
{
}

Route Router::find(const QByteArray& path) const
{
    QStringList segments;
    for (const QByteArray& segment : path.mid(1).split('/')) {
        const auto decoded = decodePercent(segment);
        if (!decoded) {
            return {};
        }
        segments.append(*decoded);
    }
    if (!path.startsWith('/') || segments.mid(0, m_prefix.size()) != m_prefix) {
        return {};
    }
    segments = segments.mid(m_prefix.size());

    if (segments == QStringList{u"connect"_s, u"token"_s}) {
        return {Endpoint::Token, "POST", {}};
    }
    if (segments == QStringList{u"MedicationPrescription"_s, u"$by-card"_s}) {
        return {Endpoint::PrescriptionsByCard, "GET", {}};
    }
    if (segments.value(0) != "MedicationDispense"_L1) {
        return {};
    }
    if (segments.size() == 2 && segments.at(1) == "$register"_L1) {
        return {Endpoint::DispenseRegistration, "POST", {}};
    }
    if (segments.size() == 2 && segments.at(1) == "$set-as-error"_L1) {
        return {Endpoint::DispenseCancellation, "POST", {}};
    }
    if (segments.size() == 3 && segments.at(2) == "$set-as-error"_L1) {
        return {Endpoint::DispenseCancellation, "POST", segments.at(1)};
    }
    return {};
}
} // namespace emulator
