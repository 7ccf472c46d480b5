// SPDX-License-Identifier: MIT
#include "httpheaders.h"

namespace emulator
{
QByteArray headerValue(const HttpHeaders& headers, const QByteArray& name)
{
    for (const auto& [fieldName, value] : headers) {
        if (fieldName.compare(name, Qt::CaseInsensitive) == 0) {
            return value;
        }
    }
    return {};
}

QByteArray bearerToken(const QByteArray& value)
{
    static const QByteArray scheme = "Bearer ";
    if (value.size() <= scheme.size() || qstrnicmp(value.constData(), scheme.constData(), scheme.size()) != 0) {
        return {};
    }
    return value.mid(scheme.size()).trimmed();
}
} // namespace emulator
