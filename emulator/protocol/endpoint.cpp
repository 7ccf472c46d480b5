// SPDX-License-Identifier: MIT
#include "endpoint.h"

#include <algorithm>
#include <array>
#include <utility>

namespace emulator
{
namespace
{
constexpr std::array names{std::pair{Endpoint::Token, "token"},
                           std::pair{Endpoint::PrescriptionsByCard, "by-card"},
                           std::pair{Endpoint::DispenseRegistration, "register"},
                           std::pair{Endpoint::DispenseCancellation, "cancel"},
                           std::pair{Endpoint::Any, "any"},
                           std::pair{Endpoint::Unknown, "unknown"}};
} // namespace

QString endpointName(Endpoint endpoint)
{
    const auto found =
        std::find_if(names.begin(), names.end(), [endpoint](const auto& name) { return name.first == endpoint; });
    return QString::fromLatin1(found->second);
}

std::optional<Endpoint> endpointOf(const QString& name)
{
    for (const auto& [endpoint, text] : names) {
        if (name == QLatin1StringView(text)) {
            return endpoint;
        }
    }
    return std::nullopt;
}

QStringList endpointNames()
{
    QStringList all;
    for (const auto& name : names) {
        all.append(QString::fromLatin1(name.second));
    }
    return all;
}
} // namespace emulator
