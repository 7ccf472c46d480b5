// SPDX-License-Identifier: MIT
#include "requestjournal.h"

#include "abstractdocument.h"
#include "config.h"
#include "documentwatcher.h"
#include "journalfile_p.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <numeric>

#include <fnmatch.h>

using namespace Qt::StringLiterals;

template struct Singleton<RequestJournal>;

namespace
{

using State = JournalledRequest::State;

constexpr qsizetype mostRequests = 10000;
/// Of bodies and answers together.
constexpr qsizetype mostBytes = qsizetype(16) * 1024 * 1024;
/// A larger answer is kept by its status alone.
constexpr qsizetype largestAnswer = qsizetype(1024) * 1024;
/// A file larger than this, and than twice its size after the last compaction, is compacted.
constexpr qint64 sizeToTidyUp = qint64(1024) * 1024;

class CurrentDocument : private DocumentWatcher
{
public:
    QString identifier() const
    {
        const QSharedPointer<AbstractDocument> document = getDocument();
        return document ? document->identifier() : QString();
    }
};

QString base64(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray bytesOf(const QJsonValue& value)
{
    return QByteArray::fromBase64(value.toString().toLatin1());
}

QJsonObject requestLine(const JournalledRequest& request)
{
    return {{"id"_L1, request.id},
            {"sent"_L1, request.sent.toString(Qt::ISODateWithMs)},
            {"document"_L1, request.document},
            {"method"_L1, request.method},
            {"url"_L1, request.url.toString(QUrl::FullyEncoded)},
            {"body"_L1, base64(request.body)}};
}

QJsonObject outcomeLine(const JournalledRequest& request)
{
    if (request.state == State::NotSent) {
        return {{"id"_L1, request.id}, {"notSent"_L1, true}};
    }
    return {{"id"_L1, request.id}, {"status"_L1, request.status}, {"answer"_L1, base64(request.answer)}};
}

QJsonObject settledLine(qint64 id)
{
    return {{"id"_L1, id}, {"settled"_L1, true}};
}

JournalledRequest requestOf(const QJsonObject& line)
{
    JournalledRequest request;
    request.id = line["id"_L1].toInteger();
    request.sent = QDateTime::fromString(line["sent"_L1].toString(), Qt::ISODateWithMs);
    request.document = line["document"_L1].toString();
    request.method = line["method"_L1].toString();
    request.url = QUrl(line["url"_L1].toString(), QUrl::StrictMode);
    request.body = bytesOf(line["body"_L1]);
    return request;
}

void warn(const Expected<void>& written)
{
    if (!written) {
        Log4Qt::LogManager::logger(u"journal"_s)->warn(written.failure().detail);
    }
}

} // namespace

class RequestJournal::Private
{
public:
    Private();

    JournalledRequest* find(qint64 id);
    void take(const QJsonObject& line);
    void remove(qint64 id);
    void tidyUp();
    bool isFull() const;
    qint64 leastNeeded() const;
    bool isUntidy() const { return file.size() > std::max(sizeToTidyUp, 2 * tidySize); }

    const QStringList patterns;
    JournalFile file;
    QList<JournalledRequest> requests; ///< not settled, by rising id
    qint64 lastId = 0;
    qint64 lastIdOfFormerRuns = 0;
    bool isSettledByPlugin = false;
    qint64 tidySize = 0; ///< of the file after the last compaction
};

RequestJournal::Private::Private()
    : patterns(Singleton<Config>::get()->getString(u"RestClient:journal"_s).split(u',', Qt::SkipEmptyParts))
    , file(Singleton<Config>::get()->getString(u"Register:data"_s), u"requests.journal"_s)
{
    const QList<QJsonObject> lines = file.read();
    for (const QJsonObject& line : lines) {
        take(line);
    }
    lastIdOfFormerRuns = lastId;
    if (!lines.isEmpty()) {
        tidyUp();
    }
}

/// Reads one line of the file. A line that makes no sense changes nothing.
void RequestJournal::Private::take(const QJsonObject& line)
{
    const qint64 id = line["id"_L1].toInteger();
    if (line.contains("method"_L1)) {
        if (id > lastId) {
            requests.append(requestOf(line));
            lastId = id;
        }
        return;
    }
    JournalledRequest* request = find(id);
    if (!request) {
        return;
    }
    if (line["settled"_L1].toBool()) {
        remove(id);
    } else if (line["notSent"_L1].toBool()) {
        request->state = State::NotSent;
    } else if (line["status"_L1].isDouble()) {
        request->state = State::Answered;
        request->status = line["status"_L1].toInt();
        request->answer = bytesOf(line["answer"_L1]);
    }
}

JournalledRequest* RequestJournal::Private::find(qint64 id)
{
    const auto found =
        std::lower_bound(requests.begin(), requests.end(), id,
                         [](const JournalledRequest& request, qint64 wanted) { return request.id < wanted; });
    return found != requests.end() && found->id == id ? &*found : nullptr;
}

void RequestJournal::Private::remove(qint64 id)
{
    requests.removeIf([id](const JournalledRequest& request) { return request.id == id; });
}

/// Compacts the file: keeps only what is not settled.
void RequestJournal::Private::tidyUp()
{
    QList<QJsonObject> lines;
    for (const JournalledRequest& request : std::as_const(requests)) {
        lines.append(requestLine(request));
        if (request.state != State::Unanswered) {
            lines.append(outcomeLine(request));
        }
    }
    warn(file.replace(lines));
    tidySize = file.size();
}

bool RequestJournal::Private::isFull() const
{
    const auto bytes = std::accumulate(requests.cbegin(), requests.cend(), qsizetype(0),
                                       [](qsizetype sum, const JournalledRequest& request) {
                                           return sum + request.body.size() + request.answer.size();
                                       });
    return requests.size() > 1 && (requests.size() > mostRequests || bytes > mostBytes);
}

/// The oldest request whose outcome is known, or else the oldest one.
qint64 RequestJournal::Private::leastNeeded() const
{
    const auto known = std::find_if(requests.cbegin(), requests.cend(), [](const JournalledRequest& request) {
        return request.state != State::Unanswered;
    });
    return known == requests.cend() ? requests.constFirst().id : known->id;
}

RequestJournal::RequestJournal()
    : d(std::make_unique<Private>())
{
}

RequestJournal::~RequestJournal() = default;

QList<JournalledRequest> RequestJournal::requests() const
{
    return d->requests;
}

QList<JournalledRequest> RequestJournal::requestsOf(const QString& document) const
{
    QList<JournalledRequest> found = requests();
    found.removeIf([&document](const JournalledRequest& request) { return request.document != document; });
    return found;
}

bool RequestJournal::wasDamaged() const
{
    return d->file.wasDamaged();
}

void RequestJournal::settle(qint64 id)
{
    if (!d->find(id)) {
        return;
    }
    d->remove(id);
    warn(d->file.append(settledLine(id)));
    if (d->isUntidy()) {
        d->tidyUp();
    }
}

bool RequestJournal::isSettledByPlugin() const
{
    return d->isSettledByPlugin;
}

void RequestJournal::setSettledByPlugin(bool isSettled)
{
    d->isSettledByPlugin = isSettled;
}

bool RequestJournal::covers(const QUrl& url) const
{
    const QByteArray path = url.path(QUrl::FullyDecoded).toUtf8();
    return std::any_of(d->patterns.cbegin(), d->patterns.cend(), [&path](const QString& pattern) {
        return ::fnmatch(pattern.trimmed().toUtf8().constData(), path.constData(), FNM_NOESCAPE) == 0;
    });
}

Expected<qint64> RequestJournal::begin(const QString& method, const QUrl& url, const QByteArray& body)
{
    JournalledRequest request;
    request.id = d->lastId + 1;
    request.sent = QDateTime::currentDateTimeUtc();
    request.document = CurrentDocument().identifier();
    request.method = method;
    request.url = url.adjusted(QUrl::RemoveUserInfo);
    request.body = body;
    if (const Expected<void> written = d->file.append(requestLine(request)); !written) {
        return Failure{tr::Tr(u"requestJournalNotWritable"_s,
                              u"Запрос не отправлен: он не записан в журнал запросов (%1). "
                              "Освободите место на диске или позовите администратора и повторите команду."_s)
                           .arg(written.failure().text.ui()),
                       written.failure().detail};
    }
    d->lastId = request.id;
    d->requests.append(request);
    while (d->isFull()) {
        Log4Qt::LogManager::logger(u"journal"_s)->warn(u"The journal is full: a request is dropped"_s);
        settle(d->leastNeeded());
    }
    return request.id;
}

void RequestJournal::end(qint64 id, State state, int status, const QByteArray& answer)
{
    JournalledRequest* request = d->find(id);
    if (!request || state == State::Unanswered) {
        return;
    }
    if (state == State::NotSent && request->document.isEmpty()) {
        settle(id); // nobody misses it
        return;
    }
    request->state = state;
    request->status = status;
    request->answer = answer.size() > largestAnswer ? QByteArray() : answer;
    warn(d->file.append(outcomeLine(*request)));
}

void RequestJournal::finishDocument(const QString& document)
{
    const QList<JournalledRequest> ofDocument = requestsOf(document);
    for (const JournalledRequest& request : ofDocument) {
        if (request.state != State::Unanswered && request.id > d->lastIdOfFormerRuns) {
            settle(request.id);
        }
    }
}
