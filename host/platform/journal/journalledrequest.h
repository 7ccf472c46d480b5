// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUrl>

/// A request of the journal, and what is known of its outcome. A value type.
struct JournalledRequest {
    enum class State {
        Unanswered, ///< no whole answer is known: the server may have carried the request out
        NotSent,    ///< nothing of it reached the server
        Answered,   ///< `status` and `answer` are the server's
    };

    qint64 id = 0;    ///< above 0; no other request in the journal has it
    QDateTime sent;   ///< UTC
    QString document; ///< AbstractDocument::identifier() of the document that was current; empty: none was
    QString method;   ///< "POST"
    QUrl url;         ///< without user name and password
    QByteArray body;  ///< as it was sent
    State state = State::Unanswered;
    int status = 0;         ///< the HTTP status (RFC 9110, 15); 0: none
    QByteArray answer = {}; ///< the body of the answer
};
