// SPDX-License-Identifier: MIT
#include "deepfolder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int timeLimit = 60'000; // milliseconds
}

/// The program in a process of its own.
class RegisterProgram : public ::testing::Test
{
protected:
    RegisterProgram()
    {
        EXPECT_TRUE(QDir(folder.path()).mkdir(u"data"_s));
        EXPECT_TRUE(QDir(folder.path()).mkdir(u"plugins"_s));
        write("register.ini", "[Register]\ndemoData=true\n");
    }

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    static void writeFile(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void write(const char* name, const QByteArray& content) { writeFile(path(name), content); }
    QStringList usualOptions() const
    {
        return {u"--config"_s,  path("register.ini"), u"--data"_s,        path("data"),
                u"--plugins"_s, path("plugins"),      u"--screenshots"_s, folder.path()};
    }
    void start(QProcess& program, const QStringList& options)
    {
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.setProcessEnvironment(environment);
        program.start(QString::fromUtf8(REGISTER_PROGRAM), options);
        ASSERT_TRUE(program.waitForStarted(timeLimit));
    }
    /// Runs the program to its end. @return its exit status; -1 when it crashed or did not end
    int run(const QStringList& options)
    {
        QProcess program;
        start(program, options);
        if (!program.waitForFinished(timeLimit)) {
            program.kill();
            program.waitForFinished(timeLimit);
            return -1;
        }
        output = QString::fromUtf8(program.readAll());
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }
    int play(const QByteArray& steps, const QStringList& options = {})
    {
        write("steps.json", "{\"steps\": " + steps + "}");
        return run(usualOptions() + QStringList{u"--play"_s, path("steps.json")} + options);
    }
    QJsonObject savedDocument() const
    {
        QFile file(path("data/receipt.json"));
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }

    void takeDisplayAway()
    {
        for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(QLatin1StringView(variable));
        }
    }

    QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QString output;
};

TEST_F(RegisterProgram, goodsAddedByKeyboard_areOnTheDocumentThatIsRestoredAfterAKill)
{
    write("steps.json", R"({"steps": [
        {"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"},
        {"type": "2990000000019"}, {"key": "Return"}, {"contains": "Амоксидар", "in": "receiptTable"},
        {"receipt": {"positions": [{"quantity": 1}]}},
        {"say": "saved"}, {"wait": "nothing", "seconds": 60}]})");
    QProcess program;
    start(program, usualOptions() + QStringList{u"--play"_s, path("steps.json")});
    while (!output.contains(u"saved"_s) && program.waitForReadyRead(timeLimit)) {
        output += QString::fromUtf8(program.readAll());
    }
    ASSERT_TRUE(output.contains(u"saved"_s)) << qPrintable(output);
    program.kill();
    ASSERT_TRUE(program.waitForFinished(timeLimit));

    EXPECT_EQ(play(R"([{"expect": "Чек № 1", "in": "receiptNumberLabel"},
                       {"contains": "Амоксидар", "in": "receiptTable"}, {"expect": "12,40", "in": "totalLabel"}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterProgram, failedExpectation_endsWithStatusOne)
{
    EXPECT_EQ(play(R"([{"expect": "x", "in": "totalLabel", "seconds": 0}])"), 1);
    EXPECT_TRUE(output.contains(u"Step 1 of 1 failed"_s)) << qPrintable(output);
}

TEST_F(RegisterProgram, scenarioThatEndsInsideADialog_closesTheProgram)
{
    EXPECT_EQ(play(R"([{"key": "F3"}, {"wait": "goodsTable"}])"), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, windowClosedInTheMiddleOfAScenario_endsWithStatusOne)
{
    EXPECT_EQ(play(R"([{"close": true}, {"wait": "nothing", "seconds": 60}])"), 1);
}

TEST_F(RegisterProgram, wrongOption_endsWithStatusTwo)
{
    EXPECT_EQ(run({u"--nonsense"_s}), 2);
    EXPECT_TRUE(output.contains(u"nonsense"_s));
}

TEST_F(RegisterProgram, noDisplay_helpVersionAndWrongOptionsAreStillShown)
{
    takeDisplayAway();
    EXPECT_EQ(run({u"--help"_s}), 0);
    EXPECT_TRUE(output.contains(u"--config"_s)) << qPrintable(output);
    EXPECT_EQ(run({u"--version"_s}), 0);
    EXPECT_TRUE(output.startsWith(u"pharmacy-register "_s)) << qPrintable(output);
    EXPECT_EQ(run({u"--nonsense"_s}), 2);
    EXPECT_TRUE(output.contains(u"nonsense"_s)) << qPrintable(output);
}

TEST_F(RegisterProgram, noDisplay_endsWithStatusSeven)
{
    takeDisplayAway();
    EXPECT_EQ(run(usualOptions()), 7);
    EXPECT_TRUE(output.contains(u"There is no display"_s)) << qPrintable(output);
}

TEST_F(RegisterProgram, noDisplay_scenarioIsPlayedOffScreen)
{
    takeDisplayAway();
    EXPECT_EQ(play(R"([{"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}])"), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, configurationMissingOrNoText_endsWithStatusThree)
{
    ASSERT_TRUE(QFile::remove(path("register.ini")));
    EXPECT_EQ(play("[]"), 3);
    EXPECT_TRUE(output.contains(path("register.ini"))) << qPrintable(output);
    write("register.ini", QByteArray("\x00\xff\xfe", 3));
    EXPECT_EQ(play("[]"), 3);
}

TEST_F(RegisterProgram, dataFolderMissingOrAFile_endsWithStatusFour)
{
    ASSERT_TRUE(QDir(path("data")).removeRecursively());
    EXPECT_EQ(play("[]"), 4);
    EXPECT_TRUE(output.contains(path("data"))) << qPrintable(output);
    write("data", "a file");
    EXPECT_EQ(play("[]"), 4);
}

TEST_F(RegisterProgram, dataFolderNotWritable_endsWithStatusFour)
{
    // Not even root can write there.
    EXPECT_EQ(run({u"--config"_s, path("register.ini"), u"--data"_s, u"/proc"_s}), 4);
    EXPECT_TRUE(output.contains(u"cannot be written to"_s)) << qPrintable(output);
}

TEST_F(RegisterProgram, secondRegisterOnTheSameData_endsWithStatusFive)
{
    write("steps.json", R"({"steps": [{"say": "ready"}, {"wait": "nothing", "seconds": 60}]})");
    QProcess first;
    start(first, usualOptions() + QStringList{u"--play"_s, path("steps.json")});
    QString printed;
    while (!printed.contains(u"ready"_s) && first.waitForReadyRead(timeLimit)) {
        printed += QString::fromUtf8(first.readAll());
    }
    EXPECT_EQ(run(usualOptions()), 5);
    EXPECT_TRUE(output.contains(u"Another register"_s)) << qPrintable(output);
    first.kill();
    ASSERT_TRUE(first.waitForFinished(timeLimit));
    EXPECT_EQ(play("[]"), 0) << "the lock of a killed register does not hold";
}

TEST_F(RegisterProgram, scenarioUnreadable_endsWithStatusSix)
{
    EXPECT_EQ(run(usualOptions() + QStringList{u"--play"_s, path("absent.json")}), 6);
    EXPECT_TRUE(output.contains(u"absent.json"_s)) << qPrintable(output);
    EXPECT_EQ(play(R"([{"jump": 1}])"), 6);
    EXPECT_TRUE(output.contains(u"step 1"_s)) << qPrintable(output);
}

TEST_F(RegisterProgram, goodsDatabaseMissing_isShownAndTheRegisterStarts)
{
    write("register.ini", "");
    EXPECT_EQ(play(R"([{"contains": "Справочник товаров недоступен", "in": "messageLabel"}, {"key": "Return"},
                       {"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterProgram, damagedDocument_isShownAndSetAsideAndTheRegisterStarts)
{
    write("data/receipt.json", "{\"format\":");
    EXPECT_EQ(play(R"([{"contains": "Сохранённый чек повреждён", "in": "messageLabel"}, {"key": "Return"},
                       {"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}])"),
              0)
        << qPrintable(output);
    EXPECT_EQ(QDir(path("data")).entryList({u"receipt.json.damaged-*"_s}).size(), 1);
    EXPECT_EQ(savedDocument().value(u"number"_s).toInt(), 1);
}

TEST_F(RegisterProgram, damagedDocumentThatCannotBeSetAside_endsWithStatusEightAndIsUnchanged)
{
    const QByteArray damaged("{\"format\":");
    const QString data = deepFolder(folder.path());
    ASSERT_TRUE(QDir().mkpath(data));
    writeFile(data + u"/receipt.json"_s, damaged);
    const QStringList options{u"--data"_s, data};

    EXPECT_EQ(play(R"([{"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}])", options), 8)
        << qPrintable(output);
    EXPECT_TRUE(output.contains(u"cannot be set aside"_s)) << qPrintable(output);
    QFile kept(data + u"/receipt.json"_s);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), damaged);
}

TEST_F(RegisterProgram, libraryThatIsNoPlugin_isNamedInTheStatusLine)
{
    write("plugins/libbroken.so", "no library");
    EXPECT_EQ(play(R"([{"contains": "broken", "in": "statusMessageLabel"}])"), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, inactivity_locksTheWindowAndAKeyLeadsBackToTheFormThatWasOpen)
{
    write("register.ini", "[Register]\ndemoData=true\n[GUI]\ninactivityLockSeconds=1\n");
    EXPECT_EQ(play(R"([{"key": "F3"}, {"type": "бинт", "into": "filterLineEdit"},
                       {"wait": "lockScreen", "seconds": 30}, {"key": "Space"},
                       {"visible": false, "in": "lockScreen"}, {"expect": "бинт", "in": "filterLineEdit"},
                       {"key": "Esc"}, {"wait": "salesScreen"}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterProgram, endedWhileLocked_comesBackLockedAndAsksForTheCode)
{
    write("register.ini", "[Register]\ndemoData=true\nunlockCode=2468\n[GUI]\ninactivityLockSeconds=1\n");
    EXPECT_EQ(play(R"([{"wait": "lockScreen", "seconds": 30}])"), 0) << qPrintable(output);
    EXPECT_EQ(play(R"([{"wait": "lockScreen"}, {"visible": false, "in": "salesScreen"}, {"key": "F2"},
                       {"type": "2468"}, {"key": "Return"}, {"visible": false, "in": "lockScreen"},
                       {"expect": "Чек не открыт", "in": "receiptNumberLabel"}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterProgram, messageAtTheStartOfALockedRegister_waitsForTheCode)
{
    write("register.ini", "[Register]\nunlockCode=2468\n[GUI]\n");
    write("data/screenlock.json", "{}");
    EXPECT_EQ(play(R"([{"wait": "lockScreen"}, {"visible": false, "in": "messageForm"}, {"type": "2468"},
                       {"key": "Return"}, {"contains": "Справочник товаров недоступен", "in": "messageLabel"}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterProgram, unlockCodeThatTouchCannotType_endsWithStatusThree)
{
    write("register.ini", "[Register]\ndemoData=true\nunlockCode=schlüssel\n");
    EXPECT_EQ(play("[]", {u"--touch"_s}), 3);
    EXPECT_TRUE(output.contains(u"Register:unlockCode"_s)) << qPrintable(output);
    EXPECT_FALSE(output.contains(u"schl"_s)) << "the code is secret";
    EXPECT_EQ(play("[]"), 0) << "a keyboard may type it";
}

TEST_F(RegisterProgram, touchAlone_putsGoodsOnTheDocument)
{
    EXPECT_EQ(play(R"([{"click": "goodsKey"}, {"wait": "goodsTable"}, {"click": "key_б"}, {"click": "key_и"},
                       {"click": "key_н"}, {"click": "key_т"}, {"expect": "бинт", "in": "filterLineEdit"},
                       {"click": "quantityPlusButton"}, {"click": "okButton"},
                       {"receipt": {"positions": [{"quantity": 2}]}}])",
                   {u"--touch"_s}),
              0)
        << qPrintable(output);
}
