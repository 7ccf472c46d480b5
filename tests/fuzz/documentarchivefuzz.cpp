// SPDX-License-Identifier: MIT
// A data folder with a file of unknown content in each place. The documents beside it can still be used.

#include "fuzztarget.h"

#include "archivefolder.h"
#include "config.h"
#include "dialogdouble.h"
#include "documentnumbers.h"
#include "opendocumentfile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int soundNumber = 1;
constexpr int otherNumber = 2;

QByteArray contentOf(const QString& file)
{
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

void put(const QString& file, const QByteArray& bytes)
{
    QFile written(file);
    promise(written.open(QIODevice::WriteOnly) && written.write(bytes) == bytes.size(), "the file can be written");
}

QByteArray soundSale()
{
    Document sale(soundNumber, QDateTime(QDate(2026, 3, 1), QTime(9, 0)));
    sale.add({.name = u"Йод"_s, .price = Kopecks{150}, .quantity = 2}, {});
    sale.setEnding({.state = Document::State::Closed,
                    .finished = QDateTime(QDate(2026, 3, 1), QTime(9, 5)),
                    .payments = {Payment::cash(Kopecks{300})}});
    return QJsonDocument(sale.toJson()).toJson();
}

/// Whether a document can be used, from its folder or as the open one.
bool isThere(const ArchiveFolder& archive, const QSharedPointer<Document>& open, int number)
{
    return archive.find(number) || (open && open->getNumber() == number);
}

bool holds(const QList<QSharedPointer<Document>>& documents, int number)
{
    return std::any_of(documents.cbegin(), documents.cend(),
                       [number](const auto& document) { return document->getNumber() == number; });
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    static const QByteArray sound = soundSale();
    const QString finishedSound = folder.filePath(u"finished/00000001.json"_s);
    const QString finished = folder.filePath(u"finished/00000002.json"_s);
    const QString suspended = folder.filePath(u"putaside/00000002.json"_s);
    const DialogDouble dialog;
    Singleton<Config>::get()->setForThisRun(u"Register:data"_s, folder.path());

    QDir(folder.path()).removeRecursively();
    QDir(folder.path()).mkpath(u"finished"_s);
    QDir(folder.path()).mkpath(u"putaside"_s);
    const QByteArray bytes = bytesOf(data, size);
    put(finishedSound, sound);
    put(finished, bytes);
    put(suspended, bytes);
    put(folder.filePath(u"receipt.json"_s), bytes);
    put(folder.filePath(u"lastreceiptnumber"_s), bytes);

    const ArchiveFolder archive(folder.path());
    promise(holds(archive.latest(10), soundNumber), "a sound document is listed whatever is beside it");
    promise(archive.greatestNumber() == otherNumber, "a damaged document keeps its number");
    DocumentNumbers numbers(folder.path());
    numbers.pass(archive.greatestNumber());
    promise(numbers.next() > otherNumber, "a new document never gets the number of another");

    const OpenDocumentFile::Loaded loaded = OpenDocumentFile(folder.path()).load();
    promise(loaded || contentOf(loaded.failure().setAside) == bytes, "a damaged document is set aside as it is");
    const QSharedPointer<Document> open = loaded ? *loaded : nullptr;
    const bool wasThere = isThere(archive, open, otherNumber);
    const auto stillOpen = archive.tidyUp(open);
    promise(isThere(archive, stillOpen, soundNumber), "tidying up leaves a sound document");
    promise(!wasThere || isThere(archive, stillOpen, otherNumber), "tidying up leaves a readable copy");
    promise(wasThere || (contentOf(finished) == bytes && contentOf(suspended) == bytes),
            "tidying up leaves damaged files as they are");

    archive.returned(*archive.find(soundNumber), stillOpen);
    if (const auto document = archive.find(otherNumber)) {
        promise(archive.saveOrShow(document), "a document that was read can be saved");
    }
    promise(contentOf(finishedSound) == sound, "a sound document stays as it is");
    return 0;
}
