// SPDX-License-Identifier: MIT
#include "archivefolder.h"

#include "basicexception.h"
#include "opendocumentfile.h"
#include "saveddocument.h"
#include "savetofilelogic.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QString suspended = u"putaside"_s;
const QString finished = u"finished"_s;

/// The document that was closed last is nearly always among so many of the greatest numbers. It need not be: a document
/// keeps its number while it is suspended.
constexpr int latestLookedAt = 100;

QString fileOf(const QString& place, int number)
{
    return place + u"/%1.json"_s.arg(number, 8, 10, QChar(u'0'));
}

QSet<int> numbersOf(const Document& document)
{
    QSet<int> numbers;
    for (const auto& position : document.positions()) {
        numbers.insert(position->getNumber());
    }
    return numbers;
}

/// So many documents before a day are looked through for some that were finished on it.
constexpr int longestCarriedOver = 50;

bool isOf(QDate day, const QSharedPointer<Document>& document)
{
    return document && (document->getOpened().date() == day || document->getFinished().date() == day);
}

void sortLatestFirst(QList<QSharedPointer<Document>>& documents)
{
    std::sort(documents.begin(), documents.end(),
              [](const auto& a, const auto& b) { return a->getNumber() > b->getNumber(); });
}

Log4Qt::Logger* log()
{
    return Log4Qt::LogManager::logger(u"register"_s);
}

} // namespace

ArchiveFolder::ArchiveFolder(const QString& folder)
    : m_folder(folder)
    , m_closings(folder)
{
}

bool ArchiveFolder::moveOrShow(const QSharedPointer<Document>& document, const Document::Ending& ending) const
{
    const QString formerFile = document->fileName();
    const Document::Ending formerEnding = document->ending();
    document->setEnding(ending);
    const QString file = document->fileName();
    const bool isSaved = saveOrShow(document);
    if (!isSaved) {
        document->setEnding(formerEnding);
    }
    if (file != formerFile) {
        removeFile(isSaved ? formerFile : file); // a save that failed while syncing leaves its file
    }
    return isSaved;
}

bool ArchiveFolder::saveOrShow(const QSharedPointer<Document>& document) const
{
    return SaveToFileLogic::create()->save(document, {});
}

QSharedPointer<Document> ArchiveFolder::find(int number) const
{
    const auto document = read(finished, number);
    return document ? document : read(suspended, number);
}

bool ArchiveFolder::isFinished(int number) const
{
    return bool(read(finished, number));
}

QList<QSharedPointer<Document>> ArchiveFolder::latest(int limit) const
{
    QList<QSharedPointer<Document>> documents;
    const auto add = [this, &documents](const QString& place, const QList<int>& numbers) {
        for (const int number : numbers) {
            if (const auto document = read(place, number)) {
                documents.append(document);
            }
        }
    };
    add(suspended, numbers(suspended));
    QList<int> latestFinished = numbers(finished);
    add(finished, latestFinished.mid(std::max<qsizetype>(0, latestFinished.size() - limit)));
    sortLatestFirst(documents);
    return documents;
}

QSharedPointer<Document> ArchiveFolder::lastClosed() const
{
    QList<int> candidates = numbers(finished);
    if (const auto noted = m_closings.last()) {
        candidates = candidates.mid(std::max<qsizetype>(0, candidates.size() - latestLookedAt));
        candidates.prepend(noted->document);
    }
    QSharedPointer<Document> last;
    for (const int number : candidates) { // the greatest number last
        const QSharedPointer<Document> document = read(finished, number);
        if (document && document->getState() == Document::State::Closed &&
            (!last || document->ending().closing >= last->ending().closing)) {
            last = document;
        }
    }
    return last;
}

int ArchiveFolder::closings() const
{
    const auto noted = m_closings.last();
    const QSharedPointer<Document> last = lastClosed();
    return std::max(noted ? noted->count : 0, last ? last->ending().closing : 0);
}

QList<QSharedPointer<Document>> ArchiveFolder::ofDay(QDate day, int limit) const
{
    QList<QSharedPointer<Document>> documents;
    const QList<int> all = numbers(finished);
    int others = 0;
    for (qsizetype at = firstOpenedFrom(all, day.addDays(1)) - 1;
         at >= 0 && others < longestCarriedOver && documents.size() < limit; --at) {
        const auto document = read(finished, all.at(at));
        if (isOf(day, document)) {
            documents.append(document);
        } else {
            ++others;
        }
    }
    for (const int number : numbers(suspended)) {
        if (const auto document = read(suspended, number); isOf(day, document)) {
            documents.append(document);
        }
    }
    sortLatestFirst(documents);
    return documents;
}

/// The place, among ascending numbers of finished documents, of the first one that was opened on that day or later.
/// One that cannot be read is judged by the next.
qsizetype ArchiveFolder::firstOpenedFrom(const QList<int>& numbers, QDate day) const
{
    qsizetype first = 0;
    qsizetype end = numbers.size();
    while (first < end) {
        const qsizetype middle = (first + end) / 2;
        qsizetype at = middle;
        QSharedPointer<Document> document;
        while (at < end && !(document = read(finished, numbers.at(at)))) {
            ++at;
        }
        if (document && document->getOpened().date() < day) {
            first = at + 1;
        } else {
            end = middle;
        }
    }
    return first;
}

int ArchiveFolder::greatestNumber() const
{
    const QList<int> all = numbers(suspended) + numbers(finished);
    return all.isEmpty() ? 0 : *std::max_element(all.cbegin(), all.cend());
}

/// A return that is suspended goes on later; one that was cancelled gives the positions back.
static bool stands(const Document& document)
{
    return document.getState() == Document::State::Closed || document.getState() == Document::State::Suspended;
}

Document::Returned ArchiveFolder::returned(const Document& sale, const QSharedPointer<Document>& open) const
{
    const QSet<int> returned = returnedPositions(sale, open);
    if (returned.isEmpty()) {
        return Document::Returned::Nothing;
    }
    return returned.contains(numbersOf(sale)) ? Document::Returned::Wholly : Document::Returned::Partly;
}

QSet<int> ArchiveFolder::returnedPositions(const Document& sale, const QSharedPointer<Document>& open) const
{
    QSet<int> returned;
    for (const int number : sale.returns()) {
        if (open && open->getNumber() == number) {
            if (open->getReturnedSale() == sale.getNumber()) {
                returned += numbersOf(*open);
            }
            continue;
        }
        const ReadReturn document = readReturn(sale, number);
        if (!document) {
            return numbersOf(sale); // the money may have been paid out already
        }
        if (*document && stands(**document)) {
            returned += numbersOf(**document);
        }
    }
    return returned;
}

std::optional<ArchiveFolder::DamagedReturn> ArchiveFolder::damagedReturn(const Document& sale,
                                                                         const QSharedPointer<Document>& open) const
{
    for (const int number : sale.returns()) {
        if (open && open->getNumber() == number) {
            continue;
        }
        if (const ReadReturn document = readReturn(sale, number); !document) {
            return document.failure();
        }
    }
    return std::nullopt;
}

QList<CardOperation> ArchiveFolder::cardOperationsOfReturns(const Document& sale) const
{
    QList<CardOperation> operations;
    for (const int number : sale.returns()) {
        const ReadReturn document = readReturn(sale, number);
        if (document && *document) {
            operations += (*document)->cardOperations();
        }
    }
    return operations;
}

ArchiveFolder::ReadReturn ArchiveFolder::readReturn(const Document& sale, int number) const
{
    for (const QString& place : {finished, suspended}) {
        const QString file = fileOf(place, number);
        if (!QFileInfo::exists(QDir(m_folder).filePath(file))) {
            continue;
        }
        auto document = read(place, number);
        if (!document) {
            return DamagedReturn{number, {file}};
        }
        return document->getReturnedSale() == sale.getNumber() ? document : QSharedPointer<Document>();
    }
    const QStringList damaged = OpenDocumentFile(m_folder).setAside();
    return damaged.isEmpty() ? ReadReturn(QSharedPointer<Document>()) : DamagedReturn{number, damaged};
}

QSharedPointer<Document> ArchiveFolder::tidyUp(const QSharedPointer<Document>& open) const
{
    const bool hasFinishedCopy = open && isFinished(open->getNumber());
    if (hasFinishedCopy) {
        removeFile(AbstractDocument::openDocumentFile);
    }
    for (const int number : numbers(suspended)) {
        if (isFinished(number) || (open && number == open->getNumber())) {
            removeFile(fileOf(suspended, number));
        }
    }
    return hasFinishedCopy ? nullptr : open;
}

/// Ascending.
QList<int> ArchiveFolder::numbers(const QString& place) const
{
    QList<int> found;
    const QStringList files = QDir(QDir(m_folder).filePath(place)).entryList({u"*.json"_s}, QDir::Files);
    for (const QString& file : files) {
        if (const int number = QFileInfo(file).completeBaseName().toInt();
            number > 0 && fileOf(place, number).endsWith(u'/' + file)) {
            found.append(number);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

QSharedPointer<Document> ArchiveFolder::read(const QString& place, int number) const
{
    const QString file = QDir(m_folder).filePath(fileOf(place, number));
    if (!QFileInfo::exists(file)) {
        return nullptr;
    }
    const Expected<QSharedPointer<Document>> saved = readSavedDocument(file);
    if (!saved) {
        log()->error(u"A saved document cannot be read: "_s + file + u": "_s + saved.failure().detail);
        return nullptr;
    }
    const QString rightFile = (*saved)->fileName();
    if (rightFile != fileOf(place, number)) { // saving it would overwrite another document
        log()->error(u"A saved document cannot be read: "_s + file + u": it belongs in "_s + rightFile);
        return nullptr;
    }
    return *saved;
}

void ArchiveFolder::removeFile(const QString& file) const
{
    QFile former(QDir(m_folder).filePath(file));
    if (former.exists() && !former.remove()) {
        log()->warn(u"A document's former file could not be removed: "_s + former.fileName() + u": "_s +
                    former.errorString());
    }
}
