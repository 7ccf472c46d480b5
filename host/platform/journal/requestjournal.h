// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "export.h"
#include "journalledrequest.h"
#include "singleton.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <memory>

/// Requests that change something at a server, kept on the disk from before they go out until they are settled.
///
/// RestClient writes down each POST whose path fits one of the patterns in "RestClient:journal", with the document that
/// is current, and what came of it before post() returns. After a fault or a power cut a plug-in finds here what it had
/// asked for, and settles it. "RestClient:journal" is a list of shell patterns (fnmatch(3), where "*" fits a slash as
/// well) with commas between them, such as "*/MedicationDispense/*"; without it nothing is written down.
///
/// The file is `requests.journal` in the folder "Register:data"; only its owner can read it. It holds addresses and
/// bodies, and never a header. docs/data-folder.md has its form.
///
/// A request is in the journal until it is settled, or until its document is finished with its outcome known in this
/// run of the register: what a former run left is for a plug-in to settle. Above 10,000 requests or 16 MiB of them, the
/// oldest with a known outcome is dropped, or else the oldest.
/// Main thread.
class REGISTERPLATFORM_EXPORT RequestJournal
{
public:
    /// Reads the configuration and the file.
    RequestJournal();
    virtual ~RequestJournal();
    Q_DISABLE_COPY_MOVE(RequestJournal)

    /// The requests that are not settled, in the order in which they went out.
    virtual QList<JournalledRequest> requests() const;
    /// Those of one document, see AbstractDocument::identifier().
    QList<JournalledRequest> requestsOf(const QString& document) const;

    /// True when the file of former runs was damaged, wholly or in part: requests of theirs may be missing.
    bool wasDamaged() const;

    /// True when such a POST is written down.
    bool covers(const QUrl& url) const;

    /// The outcome of the request is known, and the document has it: the journal forgets the request. Nothing happens
    /// when it has no such request.
    virtual void settle(qint64 id);

    /// A plug-in settles the requests that it finds here. Others word their advice by it: a command that is repeated
    /// finds out first what became of the request before.
    bool isSettledByPlugin() const;
    void setSettledByPlugin(bool isSettled);

    // The host's side; a plug-in has no use for it.

    /// Writes the request down and returns its id. On failure the request must not go out; the text says so.
    Expected<qint64> begin(const QString& method, const QUrl& url, const QByteArray& body);
    /// Writes down what came of a request; Unanswered: nothing is known. Nothing happens when there is no such request.
    void end(qint64 id, JournalledRequest::State state, int status = 0, const QByteArray& answer = {});
    /// A document was closed, cancelled or voided: its requests of this run whose outcome is known are settled.
    void finishDocument(const QString& document);

private:
    class Private;
    std::unique_ptr<Private> d;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<RequestJournal>;
