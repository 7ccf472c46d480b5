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
    for (const auto& [name, value] : pairs) {
        parts.append(encoded(name) + '=' + encoded(value));
    }
    return parts.join('&');
}

/// A value is decoded like a part of a path; only a form's plus signs are blanks.
void decodeAsValue(const QByteArray& part)
{
    if (part.contains('&')) {
        return;
    }
    const auto value = decodePercent(part);
    const auto query = decodeQuery("name=" + part);
    promise(query.has_value() == value.has_value() && (!query || query->first().second == *value),
            "a value of a query is decoded like a part of a path");
    const auto blank = decodePercent(QByteArray(part).replace('+', ' '));
    const auto form = decodeForm("name=" + part);
    promise(form.has_value() == blank.has_value() && (!form || form->first().second == *blank),
            "a plus sign in a form is a blank");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    if (const auto text = decodePercent(bytes)) {
        promise(decodePercent(encoded(*text)) == text, "a decoded part encodes and decodes to itself");
    }
    const QString text = QString::fromUtf8(bytes);
    promise(decodePercent(encoded(text)) == text, "whatever is encoded can be decoded");
    decodeAsValue(bytes);
    if (const auto query = decodeQuery(bytes)) {
        promise(decodeQuery(encoded(*query)) == query, "a decoded query encodes and decodes to itself");
    }
    if (const auto form = decodeForm(bytes)) {
        promise(decodeForm(encoded(*form)) == form, "a decoded form encodes and decodes to itself");
    }
    promise(decodeQuery(bytes).has_value() == decodeForm(bytes).has_value(),
            "a form is a query but for its plus signs");
    return 0;
}
