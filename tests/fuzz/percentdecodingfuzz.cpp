// SPDX-License-Identifier: MIT
// Percent-encoded octets of a request's path, query and form.

#include "fuzztarget.h"

#include "percentdecoding.h"

using namespace emulator;

namespace
{

QByteArray encoded(const QString& text)
{
    return text.toUtf8().toPercentEncoding();
}

QByteArray encoded(const DecodedPairs& pairs)
{
    QByteArrayList parts;
    for (const auto& [name, value] : pairs)
        parts.append(encoded(name) + '=' + encoded(value));
    return parts.join('&');
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    if (const auto text = decodePercent(bytes))
        promise(decodePercent(encoded(*text)) == text, "a decoded part encodes and decodes to itself");
    const QString text = QString::fromUtf8(bytes);
    promise(decodePercent(encoded(text)) == text, "whatever is encoded can be decoded");
    if (const auto query = decodeQuery(bytes))
        promise(decodeQuery(encoded(*query)) == query, "a decoded query encodes and decodes to itself");
    if (const auto form = decodeForm(bytes))
        promise(decodeForm(encoded(*form)) == form, "a decoded form encodes and decodes to itself");
    promise(decodeQuery(bytes).has_value() == decodeForm(bytes).has_value(),
            "a form is a query but for its plus signs");
    return 0;
}
