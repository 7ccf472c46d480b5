// SPDX-License-Identifier: MIT
#include "redirect_p.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace
{

const QLatin1StringView http("http");
const QLatin1StringView https("https");

int portOf(const QUrl& url)
{
    constexpr int httpPort = 80;
    constexpr int httpsPort = 443;
    return url.port(url.scheme() == https ? httpsPort : httpPort);
}

} // namespace

bool isRequestable(const QUrl& url)
{
    return url.isValid() && (url.scheme() == http || url.scheme() == https) && !url.host().isEmpty() &&
           url.userInfo().isEmpty() && url.port() != 0;
}

bool isSameOrigin(const QUrl& left, const QUrl& right)
{
    return left.scheme() == right.scheme() && left.host() == right.host() && portOf(left) == portOf(right);
}

bool isRedirect(int status)
{
    constexpr std::array redirects = {301, 302, 303, 307, 308};
    return std::find(redirects.begin(), redirects.end(), status) != redirects.end();
}

QUrl redirectTarget(const QUrl& from, const QByteArray& location)
{
    const QUrl reference(QString::fromUtf8(location));
    if (location.isEmpty() || !reference.isValid()) {
        return {};
    }
    const QUrl target = from.resolved(reference);
    const bool losesSecurity = from.scheme() == https && target.scheme() == http;
    return isRequestable(target) && !losesSecurity ? target : QUrl();
}
