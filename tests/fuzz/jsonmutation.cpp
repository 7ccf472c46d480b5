// SPDX-License-Identifier: MIT
// How a fuzzer changes JSON: it replaces one value somewhere in the input, so that most inputs pass the parser.

#include "fuzztarget.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>
#include <random>

using namespace Qt::StringLiterals;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace
{

using Random = std::minstd_rand;

QString changed(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    const qsizetype size = bytes.size();
    bytes.resize(size + 16);
    auto* data = reinterpret_cast<std::uint8_t*>(bytes.data());
    bytes.truncate(qsizetype(LLVMFuzzerMutate(data, std::size_t(size), std::size_t(bytes.size()))));
    return QString::fromUtf8(bytes);
}

QJsonValue other(const QJsonValue& value, Random& random)
{
    switch (random() % 14) {
    case 0:
        return QJsonValue::Null;
    case 1:
        return random() % 2 == 0;
    case 2:
        return QString();
    case 3:
        return 0;
    case 4:
        return -1.5;
    case 5:
        return 1e308;
    case 6:
        return 2147483647;
    case 7:
        return QJsonArray();
    case 8:
        return QJsonObject();
    case 9:
        return QJsonArray{value, value};
    case 10:
        return QJsonObject{{u"value"_s, value}};
    case 11:
        return value.toDouble() + double(random() % 3) - 1;
    default:
        return changed(value.toString());
    }
}

/// The value with one thing in it changed, added or left out.
QJsonValue mutated(const QJsonValue& value, Random& random) // NOLINT(misc-no-recursion): as deep as the input
{
    if (value.isObject() && random() % 8 != 0 && !value.toObject().isEmpty()) {
        QJsonObject object = value.toObject();
        const QStringList names = object.keys();
        const QString name = names[qsizetype(random()) % names.size()];
        if (random() % 8 == 0) {
            object.remove(name);
        } else if (random() % 16 == 0) {
            object.insert(changed(name), object.take(name));
        } else {
            object.insert(name, mutated(object.value(name), random));
        }
        return object;
    }
    if (value.isArray() && random() % 8 != 0 && !value.toArray().isEmpty()) {
        QJsonArray array = value.toArray();
        const qsizetype place = qsizetype(random()) % array.size();
        if (random() % 8 == 0) {
            array.removeAt(place);
        } else if (random() % 8 == 0) {
            array.insert(place, array.at(place));
        } else {
            array[place] = mutated(array.at(place), random);
        }
        return array;
    }
    return other(value, random);
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    Random random(seed);
    const QJsonDocument document = QJsonDocument::fromJson(bytesOf(data, size));
    if (document.isNull() || random() % 16 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    const QJsonValue root = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    const QJsonValue changedRoot = mutated(root, random);
    const QJsonDocument result =
        changedRoot.isArray() ? QJsonDocument(changedRoot.toArray()) : QJsonDocument(changedRoot.toObject());
    const QByteArray bytes = result.toJson(QJsonDocument::Compact);
    if (std::size_t(bytes.size()) > maxSize) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    std::memcpy(data, bytes.constData(), std::size_t(bytes.size()));
    return std::size_t(bytes.size());
}
