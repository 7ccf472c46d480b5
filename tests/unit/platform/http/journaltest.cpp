// SPDX-License-Identifier: MIT
// What the journal of requests holds while a POST waits, and afterwards.
#include "clientandserver.h"
#include "documentdouble.h"
#include "documentwatcher.h"
#include "finally.h"
#include "inplace.h"
#include "requestjournal.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

using State = JournalledRequest::State;

class JournalledPost : public testing::Test
{
protected:
    JournalledPost()
    {
        both.configuration.set(u"Register:data"_s, folder.path());
        both.configuration.set(u"RestClient:journal"_s, u"*/MedicationDispense/*"_s);
        journal = std::make_unique<Own<RequestJournal>>();
    }
    void post()
    {
        both.client.post(both.server.url(u"/MedicationDispense/$register"_s), R"({"doses": 30})",
                         {{u"Authorization"_s, u"Bearer secret-token"_s}});
    }
    QByteArray file() const
    {
        QFile opened(folder.filePath(u"requests.journal"_s));
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }
    /// The one request of the journal.
    JournalledRequest request() const
    {
        const QList<JournalledRequest> all = journal->object.requests();
        EXPECT_EQ(all.size(), 1);
        return all.value(0);
    }

    const QTemporaryDir folder;
    ClientAndServer both;
    std::unique_ptr<Own<RequestJournal>> journal;
};

} // namespace

TEST_F(JournalledPost, reachesTheServer_isOnTheDiskByThen)
{
    QByteArray whileItWaits;
    both.server.reactBy([&](const ReceivedRequest&) {
        whileItWaits = file();
        return Reaction::json(201, R"({"id": "d-1"})");
    });
    post();
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(whileItWaits.count('\n'), 1);
    EXPECT_TRUE(whileItWaits.contains("MedicationDispense"));
    EXPECT_TRUE(whileItWaits.contains(QByteArray(R"({"doses": 30})").toBase64()));
}

TEST_F(JournalledPost, answered_answerIsOnTheDiskWhenItReturns)
{
    both.server.react({Reaction::json(201, R"({"id": "d-1"})")});
    post();
    const RequestJournal nextStart;
    ASSERT_EQ(nextStart.requests().size(), 1);
    EXPECT_EQ(nextStart.requests().first().state, State::Answered);
    EXPECT_EQ(nextStart.requests().first().status, 201);
    EXPECT_EQ(nextStart.requests().first().answer, R"({"id": "d-1"})");
}

TEST_F(JournalledPost, refused_statusAndAnswerAreKept)
{
    both.server.react({Reaction::json(422, R"({"issue": []})")});
    post();
    EXPECT_EQ(request().state, State::Answered);
    EXPECT_EQ(request().status, 422);
    EXPECT_EQ(request().answer, R"({"issue": []})");
}

TEST_F(JournalledPost, answerLost_staysUnanswered)
{
    for (const Reaction& reaction : {Reaction::closeBeforeAnswer(), Reaction::resetBeforeAnswer(),
                                     Reaction::halfAnswer(200, R"({"id": 1})", Reaction::End::Close),
                                     Reaction::raw("HTTP/1.1 200 OK\r\n\r\n{\"id\":", Reaction::End::Close)}) {
        both.server.react({reaction});
        post();
        EXPECT_GT(both.client.errorCode(), 0);
        EXPECT_EQ(request().state, State::Unanswered);
        journal->object.settle(request().id);
    }
}

TEST_F(JournalledPost, answerThatSaysNothing_staysUnanswered)
{
    for (const Reaction& reaction : {Reaction::json(504, R"({"issue": []})"), Reaction::json(502, "{}"),
                                     Reaction::json(200, "<html>"), Reaction::json(201, "")}) {
        both.server.react({reaction});
        post();
        EXPECT_EQ(request().state, State::Unanswered);
        journal->object.settle(request().id);
    }
}

TEST_F(JournalledPost, serverNotReached_isKeptAsNotSent)
{
    const auto document = QSharedPointer<DocumentDouble>::create();
    document->name = u"17"_s;
    DocumentWatcher::setCurrentDocument(document);
    const Finally none([] { DocumentWatcher::setCurrentDocument({}); });
    both.client.post(QUrl(u"http://127.0.0.1:1/MedicationDispense/$register"_s), "{}", {});
    EXPECT_GT(both.client.errorCode(), 0);
    EXPECT_EQ(request().state, State::NotSent);
}

TEST_F(JournalledPost, headers_areNotInTheFile)
{
    post();
    EXPECT_FALSE(file().isEmpty());
    EXPECT_FALSE(file().contains("secret-token"));
    EXPECT_FALSE(file().contains(QByteArray("secret-token").toBase64()));
    EXPECT_FALSE(file().contains("Authorization"));
}

TEST_F(JournalledPost, otherRequests_areNotWrittenDown)
{
    both.get(u"/MedicationDispense/1"_s);
    both.client.post(both.server.url(u"/token"_s), "secret", {});
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(file(), "");
}

TEST_F(JournalledPost, journalNotWritable_nothingReachesTheServer)
{
    both.configuration.set(u"Register:data"_s, u"/nonexistent"_s);
    journal.reset();
    journal = std::make_unique<Own<RequestJournal>>();
    post();
    EXPECT_GT(both.client.errorCode(), 0);
    EXPECT_LT(both.client.errorCode(), 100);
    EXPECT_EQ(both.client.errorText().key(), "requestJournalNotWritable");
    EXPECT_TRUE(both.client.answer().isNull());
    EXPECT_TRUE(both.server.requests().isEmpty());

    both.client.post(both.server.url(u"/token"_s), "{}", {});
    EXPECT_THAT(both.client, Succeeded());
}
