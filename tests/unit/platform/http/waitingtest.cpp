// SPDX-License-Identifier: MIT
#include "clientandserver.h"

#include "inputblocker.h"
#include "logcapture.h"

#include <QApplication>
#include <QJsonArray>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSemaphore>
#include <QTest>
#include <QTimer>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

constexpr int longestWaitMs = 20'000;

/// A server that answers once the window has shown so many signs of life.
class PatientServer
{
public:
    explicit PatientServer(int signsOfLife)
    {
        server.reactBy([this, signsOfLife](const ReceivedRequest&) {
            const bool lives = m_signs.tryAcquire(signsOfLife, longestWaitMs);
            return Reaction::json(lives ? 200 : 500, "{}");
        });
    }

    void sign() { m_signs.release(); }

    ScriptedServer server;

private:
    QSemaphore m_signs;
};

class Painted : public QWidget
{
public:
    std::function<void()> onPaint;

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (onPaint) {
            onPaint();
        }
    }
};

void typeLetter(QWidget& widget)
{
    QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
    QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier, "a"));
}

} // namespace

TEST(RestClientWaiting, timersTickWhileTheServerThinks)
{
    const Configured configuration;
    PatientServer patient(5);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&patient] { patient.sign(); });
    timer.start(1);
    RestClient client;
    client.get(patient.server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, Succeeded());
}

TEST(RestClientWaiting, windowIsPaintedWhileTheServerThinks)
{
    const Configured configuration;
    PatientServer patient(3);
    Painted window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.onPaint = [&] {
        patient.sign();
        QTimer::singleShot(0, &window, [&window] { window.update(); });
    };
    window.update();
    RestClient client;
    client.get(patient.server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, Succeeded());
}

TEST(RestClientWaiting, keysPressedMeanwhile_neverArrive)
{
    const Configured configuration;
    PatientServer patient(1);
    QLineEdit field;
    field.show();
    field.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    QTimer::singleShot(0, &field, [&] {
        EXPECT_TRUE(InputBlocker::isActive());
        QTest::keyClick(field.window()->windowHandle(), Qt::Key_B);
        typeLetter(field);
        patient.sign();
    });
    RestClient client;
    client.get(patient.server.url(), QJsonDocument(), {});
    ASSERT_THAT(client, Succeeded());
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), QString());
    EXPECT_FALSE(InputBlocker::isActive());

    typeLetter(field);
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), u"a"_s);
}

TEST(RestClientWaiting, keysPressedDuringFastRequest_neverArriveEither)
{
    ClientAndServer both;
    QLineEdit field;
    field.show();
    field.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    auto letter = std::make_unique<QKeyEvent>(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    both.server.reactBy([&](const ReceivedRequest&) {
        QCoreApplication::postEvent(&field, letter.release());
        return Reaction::json(200, "{}");
    });
    both.get();
    ASSERT_THAT(both.client, Succeeded());
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), QString());
}

TEST(RestClientWaiting, requestFromEventHandlerMeanwhile_bothGetTheirOwnAnswers)
{
    for (const Scheme scheme : {Scheme::Http, Scheme::Https}) {
        const Configured configuration(trustingConfiguration());
        PatientServer patient(1);
        ScriptedServer other(scheme == Scheme::Https ? &identity() : nullptr);
        other.react({Reaction::json(200, "[1]"), Reaction::json(200, "[2, 3]")});
        RestClient inner;
        QTimer::singleShot(0, [&] {
            inner.get(other.url(), QJsonDocument(), {});
            EXPECT_THAT(inner, Succeeded());
            inner.post(other.url(), "{}", {});
            EXPECT_THAT(inner, Succeeded());
            EXPECT_EQ(inner.answer().array().size(), 2);
            patient.sign();
        });
        RestClient outer;
        outer.get(patient.server.url(), QJsonDocument(), {});
        EXPECT_THAT(outer, Succeeded());
        EXPECT_TRUE(outer.answer().isObject());
        EXPECT_EQ(other.requests().size(), 2);
        EXPECT_EQ(patient.server.requests().size(), 1);
    }
}

TEST(RestClientWaiting, eventHandlerThrowsMeanwhile_requestGetsItsAnswerAndTheConnectionIsKept)
{
    for (const Scheme scheme : {Scheme::Http, Scheme::Https}) {
        const Configured configuration(trustingConfiguration());
        QSemaphore thrown;
        ScriptedServer server(scheme == Scheme::Https ? &identity() : nullptr);
        server.reactBy([&](const ReceivedRequest&) {
            return Reaction::json(thrown.tryAcquire(1, longestWaitMs) ? 200 : 500, "[1]");
        });
        QTimer::singleShot(0, [&] {
            thrown.release(3); // one for each request
            throw std::runtime_error("Пробный Пётр");
        });
        const LogCapture log;
        RestClient client;
        EXPECT_NO_THROW(client.post(server.url(), "{}", {}));
        EXPECT_THAT(client, Succeeded());
        EXPECT_EQ(client.answer().array().size(), 1);
        EXPECT_EQ(log.lines(), QStringList(u"ERROR restclient An event handler threw while a request was under way"_s));
        EXPECT_FALSE(InputBlocker::isActive());

        client.get(server.url(), QJsonDocument(), {});
        EXPECT_THAT(client, Succeeded());
        client.get(server.url(), QJsonDocument(), {});
        EXPECT_THAT(client, Succeeded());
        EXPECT_EQ(server.connectionCount(), 1) << "a busy transport opens a connection for each request";
    }
}
