// SPDX-License-Identifier: MIT
// A saved document: from the bytes of its file to its sums, and back into a file.

#include "fuzztarget.h"

#include "saveddocument.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <initializer_list>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

Expected<QSharedPointer<Document>> read(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(u"receipt.json"_s));
    promise(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the file can be written");
    file.close();
    return readSavedDocument(file.fileName());
}

QByteArray saved(const Document& document)
{
    return QJsonDocument(document.toJson()).toJson();
}

/// Members of these names are the same, as far as `written` has them.
void compare(const QJsonObject& written, const QJsonObject& kept, std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const QLatin1StringView member(name);
        promise(!written.contains(member) || written.value(member) == kept.value(member), "nothing read is lost");
    }
}

/// Prices of these names are the same to the kopeck, as far as `written` has them.
void comparePrices(const QJsonObject& written, const QJsonObject& kept, std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const QLatin1StringView member(name);
        promise(!written.contains(member) || GoodsItem::priceOf(written.value(member).toDouble()) ==
                                                 Kopecks::fromRoubles(kept.value(member).toDouble()),
                "a price is kept to the kopeck");
    }
}

void compareWithFile(const QJsonObject& written, const QJsonObject& kept)
{
    compare(written, kept, {"number", "type", "state", "takenBackBy"});
    const QJsonArray positions = written.value("positions"_L1).toArray();
    for (qsizetype place = 0; place < positions.size(); ++place) {
        const QJsonObject position = positions.at(place).toObject();
        const QJsonObject keptPosition = kept.value("positions"_L1).toArray().at(place).toObject();
        compare(position, keptPosition, {"number", "name", "quantity", "extendedOptions", "softCheckId"});
        comparePrices(position, keptPosition, {"price", "minRetailPrice", "tmcPrice", "initialPrice"});
    }
    const QJsonObject plugins = written.value("plugins"_L1).toObject();
    for (auto plugin = plugins.begin(); plugin != plugins.end(); ++plugin) {
        promise(plugin->toObject() == kept.value("plugins"_L1).toObject().value(plugin.key()).toObject(),
                "nothing that a plug-in stored is lost");
    }
}

/// False after some two thousand million positions, which no real document has.
bool hasRoom(const Document& document)
{
    constexpr int lastNumber = std::numeric_limits<int>::max() - 1;
    return document.toJson().value(u"nextPosition"_s).toInt() < lastNumber;
}

/// Does what a cashier does with a document that was read: each accepted one can be used.
void workOn(Document& document)
{
    const Kopecks before = document.getSum();
    const auto position = document.add({.name = u"Йод"_s, .price = Kopecks{150}, .quantity = 2}, {});
    promise(document.position(position->getNumber()) == position, "a new position has a number of its own");
    promise(document.getSum() == before + Kopecks{300}, "a new position adds its price to the sum");
    document.remove(position->getNumber());
    promise(document.getSum() == before, "a removed position takes its price with it");
    promise(document.isReturn() || document.getChange() == document.getReceived() - before,
            "the change is what was received minus the sum");

    const auto returnSale = Document::returnOf(document, 7, document.getOpened());
    promise(returnSale->getSum() == before, "a return has the whole sum of the sale");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const auto file = read(bytes);
    if (!file) {
        promise(!file.failure().text.ui().isEmpty(), "a failure says what is wrong");
        promise(file.failure().detail != u"no error occurred"_s, "a failure has a reason");
        return 0;
    }
    Document& document = **file;
    compareWithFile(QJsonDocument::fromJson(bytes).object(), document.toJson());
    const QByteArray once = saved(document);
    const auto again = read(once);
    promise(bool(again), "an accepted document is accepted again after it was saved");
    promise(saved(**again) == once, "an accepted document is read back equal");
    promise((*again)->getSum() == document.getSum(), "the sum stays the same");
    promise((*again)->getReceived() == document.getReceived(), "the cash received stays the same");
    if (hasRoom(document)) {
        workOn(document);
    }
    return 0;
}
