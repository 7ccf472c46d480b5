// SPDX-License-Identifier: MIT
#include "deepfolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int timeLimit = 60'000; // milliseconds

void forbidWriting()
{
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_FSIZE, &none);
    std::signal(SIGXFSZ, SIG_IGN);
}
} // namespace

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
        if (writeNothing) {
            program.setChildProcessModifier(forbidWriting);
        }
        program.start(executable, options);
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
    QByteArray contentOf(const char* name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }
    QJsonObject savedDocument() const
    {
        QFile file(path("data/receipt.json"));
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }

    /// What was printed of the lines of the configuration, each from its colon on.
    QStringList printedProblems() const
    {
        QStringList problems;
        for (const QString& line : output.split(u'\n')) {
            if (line.startsWith(path("register.ini"))) {
                problems.append(line.mid(path("register.ini").size()));
            }
        }
        return problems;
    }

    void takeDisplayAway()
    {
        for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(QLatin1StringView(variable));
        }
    }

    QTemporaryDir folder;
    QString executable = QString::fromUtf8(REGISTER_PROGRAM);
    bool writeNothing = false; ///< as on a full disk: files are made, but stay empty
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

/// A signal of the system, and what the cashier is in the middle of.
struct Ending {
    const char* name;
    int signal;
    const char* steps;
};

class EndBySignal : public RegisterProgram, public ::testing::WithParamInterface<Ending>
{
};

TEST_P(EndBySignal, documentIsSavedPluginsAreDeinitialisedAndTheStatusIsZero)
{
    write("steps.json", QByteArray(R"({"steps": [{"key": "F2"}, {"type": "2990000000019"}, {"key": "Return"},
                                      {"receipt": {"positions": [{"quantity": 1}]}}, )") +
                            GetParam().steps + R"({"say": "ready"}, {"wait": "nothing", "seconds": 60}]})");
    QProcess program;
    QStringList options = usualOptions() + QStringList{u"--play"_s, path("steps.json")};
    options.replace(options.indexOf(u"--plugins"_s) + 1, QString::fromUtf8(TEST_PLUGINS "/willing_plugin_folder"));
    start(program, options);
    while (!output.contains(u"ready"_s) && program.waitForReadyRead(timeLimit)) {
        output += QString::fromUtf8(program.readAll());
    }
    ASSERT_TRUE(output.contains(u"ready"_s)) << qPrintable(output);
    ASSERT_EQ(::kill(pid_t(program.processId()), GetParam().signal), 0);
    ASSERT_TRUE(program.waitForFinished(timeLimit));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    output += QString::fromUtf8(program.readAll());
    EXPECT_TRUE(output.contains(u"testplugin deinit"_s)) << qPrintable(output);
    EXPECT_EQ(savedDocument()["positions"_L1].toArray().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    , EndBySignal,
    ::testing::Values(Ending{"terminatedOnTheSalesScreen", SIGTERM, ""},
                      Ending{"interruptedInTheListOfGoods", SIGINT, R"({"key": "F3"}, {"wait": "goodsTable"}, )"},
                      Ending{"hungUpInAQuestion", SIGHUP, R"({"key": "F9"}, {"wait": "questionForm"}, )"},
                      Ending{"terminatedInThePayment", SIGTERM, R"({"key": "F12"}, {"wait": "receivedLineEdit"}, )"}),
    [](const auto& instance) { return instance.param.name; });

TEST_F(RegisterProgram, wrongOption_endsWithStatusTwo)
{
    EXPECT_EQ(run({u"--nonsense"_s}), 2);
    EXPECT_TRUE(output.contains(u"nonsense"_s));
}

TEST_F(RegisterProgram, folderOfAnOptionIsNotThere_endsWithTheOptionsStatusAndNamesBoth)
{
    const std::pair<const char*, int> options[] = {{"--plugins", 2}, {"--layouts", 2}, {"--screenshots", 6}};
    for (const auto& [option, status] : options) {
        const QString name = QString::fromUtf8(option);
        EXPECT_EQ(play("[]", {name, path("nowhere")}), status) << option;
        EXPECT_TRUE(output.endsWith(
            u"pharmacy-register: %1 names no folder that can be read: %2\nMake it, or name another one\n"_s.arg(
                name, path("nowhere"))))
            << qPrintable(output);
        EXPECT_FALSE(QFile::exists(path("nowhere"))) << option;
        EXPECT_EQ(play("[]", {name, path("register.ini")}), status) << "a file instead of a folder";
    }
}

TEST_F(RegisterProgram, noPluginFolderGivenAndNoneBesideTheProgram_starts)
{
    // The program is alone in its folder; its libraries are still found where they were built.
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"bin"_s));
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(REGISTER_PROGRAM), path("bin/pharmacy-register")));
    executable = path("bin/pharmacy-register");
    ASSERT_TRUE(QDir(path("plugins")).removeRecursively());
    write("steps.json", R"({"steps": [{"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}]})");
    EXPECT_EQ(run({u"--config"_s, path("register.ini"), u"--data"_s, path("data"), u"--play"_s, path("steps.json")}), 0)
        << qPrintable(output);
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

TEST_F(RegisterProgram, noDataFolderNamed_theUsersOwnIsMade)
{
    environment.insert(u"XDG_DATA_HOME"_s, path("home/share"));
    write("steps.json", R"({"steps": [{"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}]})");
    EXPECT_EQ(run({u"--config"_s, path("register.ini"), u"--play"_s, path("steps.json")}), 0) << qPrintable(output);
    const QFileInfo made(path("home/share/pharmacy-register"));
    EXPECT_TRUE(QFileInfo::exists(made.filePath() + u"/receipt.json"_s));
    EXPECT_EQ(made.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
}

TEST_F(RegisterProgram, usersOwnDataFolderCannotBeMade_endsWithStatusFour)
{
    write("file", "no folder");
    environment.insert(u"XDG_DATA_HOME"_s, path("file"));
    EXPECT_EQ(run({u"--config"_s, path("register.ini"), u"--play"_s, path("register.ini")}), 4);
    EXPECT_TRUE(output.contains(path("file/pharmacy-register"))) << qPrintable(output);
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

TEST_F(RegisterProgram, lockFileThatSaysNothing_isTakenOver)
{
    for (const QByteArray content : {"", "x", "0\n\n\n"}) {
        write("data/register.lock", content);
        EXPECT_EQ(play("[]"), 0) << content.constData() << qPrintable(output);
    }
}

TEST_F(RegisterProgram, lockFileThatSaysNothingIsHeld_endsWithStatusFiveAndItsName)
{
    write("data/register.lock", "");
    const int held = ::open(path("data/register.lock").toUtf8().constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0); // as a register does that has not written its name yet
    EXPECT_EQ(play("[]"), 5);
    EXPECT_TRUE(output.contains(u"Another register"_s)) << qPrintable(output);
    EXPECT_TRUE(output.contains(path("data/register.lock"))) << qPrintable(output);
    ::close(held);
    EXPECT_EQ(play("[]"), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, lockFileOfAnotherHost_endsWithStatusFiveItsNameAndWhatToDo)
{
    write("data/register.lock", "12345\npharmacy-register\ntill-two.example\n");
    EXPECT_EQ(play("[]"), 5);
    EXPECT_TRUE(output.contains(u"process 12345 of the computer till-two.example: "_s + path("data/register.lock")))
        << qPrintable(output);
    EXPECT_TRUE(output.contains(u"If no register works with it there, delete that file"_s)) << qPrintable(output);
    ASSERT_TRUE(QFile::remove(path("data/register.lock")));
    EXPECT_EQ(play("[]"), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, lockFileOfADeadProcess_isTakenOver)
{
    QProcess ended;
    ended.start(u"true"_s, QStringList());
    ASSERT_TRUE(ended.waitForStarted(timeLimit));
    const QByteArray process = QByteArray::number(ended.processId());
    ASSERT_TRUE(ended.waitForFinished(timeLimit));
    write("data/register.lock", process + "\npharmacy-register\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    EXPECT_EQ(play("[]"), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, lockFileCannotBeWritten_endsWithStatusFourAndItsName)
{
    const QString expected = u"The lock file "_s + path("data/register.lock") + u" cannot be written"_s;
    writeNothing = true;
    EXPECT_EQ(run(usualOptions()), 4);
    EXPECT_TRUE(output.contains(expected)) << qPrintable(output);

    writeNothing = false;
    ASSERT_TRUE(QDir(path("data")).mkdir(u"register.lock"_s));
    EXPECT_EQ(run(usualOptions()), 4);
    EXPECT_TRUE(output.contains(expected)) << qPrintable(output);
}

TEST_F(RegisterProgram, loggingFolderConfigured_logIsThere)
{
    write("register.ini", "[Register]\ndemoData=true\n[Logging]\nfolder=" + path("logs/till").toUtf8() + "\n");
    EXPECT_EQ(play("[]"), 0) << qPrintable(output);
    EXPECT_TRUE(QFile::exists(path("logs/till/register.log")));
    EXPECT_FALSE(QFile::exists(path("data/log")));
}

TEST_F(RegisterProgram, start_logsTheVersion)
{
    EXPECT_EQ(run({u"--version"_s}), 0);
    const QByteArray version = output.trimmed().toUtf8();
    EXPECT_THAT(version.toStdString(),
                ::testing::MatchesRegex("pharmacy-register [0-9]+\\.[0-9]+\\.[0-9]+( \\([0-9a-f]+\\))?"));
    EXPECT_EQ(play("[]"), 0) << qPrintable(output);
    EXPECT_TRUE(contentOf("data/log/register.log").contains("Start of " + version + " with Qt 6."));
}

TEST_F(RegisterProgram, loggingFolderCannotBeWrittenTo_logIsInTheDataFolderAndSaysSo)
{
    write("register.ini", "[Register]\ndemoData=true\n[Logging]\nfolder=/proc\n");
    const QStringList expected(
        u":4: [Logging] folder: names a folder that cannot be written to; logs go to the data folder: /proc"_s);
    EXPECT_EQ(play(R"([{"contains": "Замечаний к настройкам: 1", "in": "statusMessageLabel"}])"), 0)
        << qPrintable(output);
    EXPECT_EQ(printedProblems(), expected);
    EXPECT_TRUE(contentOf("data/log/register.log").contains(expected.first().toUtf8()));
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    EXPECT_EQ(printedProblems(), expected);
}

TEST_F(RegisterProgram, whateverItWrites_isReadableByItsOwnerAlone)
{
    EXPECT_EQ(play(R"([{"key": "F2"}, {"type": "2990000000019"}, {"key": "Return"},
                       {"contains": "Амоксидар", "in": "receiptTable"}])"),
              0)
        << qPrintable(output);
    constexpr QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QStringList seen;
    QDirIterator files(path("data"), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        seen.append(QDir(path("data")).relativeFilePath(files.next()));
        EXPECT_FALSE(files.fileInfo().permissions() & others) << qPrintable(seen.last());
    }
    for (const char* file : {"receipt.json", "log", "log/register.log", "goods.sqlite", "lastreceiptnumber"}) {
        EXPECT_TRUE(seen.contains(QLatin1StringView(file))) << file;
    }
}

TEST_F(RegisterProgram, configurationWithMistakes_areNamedInLogAndStatusLineAndTheRegisterStarts)
{
    write("register.ini", "[Register]\ndemoData=true\nUnlockCode=1234\n[GUI]\ntouchMode=maybe\n");
    EXPECT_EQ(play(R"([{"contains": "Замечаний к настройкам: 2", "in": "statusMessageLabel"},
                       {"key": "F2"}, {"expect": "Чек № 1", "in": "receiptNumberLabel"}])"),
              0)
        << qPrintable(output);
    const QByteArray log = contentOf("data/log/register.log");
    EXPECT_TRUE(log.contains("register.ini:3: [Register] UnlockCode: unknown key; did you mean [Register] unlockCode?"))
        << log.constData();
    EXPECT_TRUE(log.contains("register.ini:5: [GUI] touchMode: wants true or false")) << log.constData();
    EXPECT_FALSE(log.contains("1234"));
}

TEST_F(RegisterProgram, configurationWithMistakes_areOnTheErrorOutputToo)
{
    write("register.ini", "[Register]\ndemoData=true\nUnlockCode=1234\n[GUI]\ninactivityLockSeconds=5 min\n");
    EXPECT_EQ(play("[]"), 0);
    EXPECT_EQ(printedProblems(),
              QStringList({u":3: [Register] UnlockCode: unknown key; did you mean [Register] unlockCode?"_s,
                           u":5: [GUI] inactivityLockSeconds: wants a whole number from 0 to 86400"_s}));
}

TEST_F(RegisterProgram, configurationNamesAFileOrAFolderThatIsNotThere_endsWithStatusThree)
{
    const std::pair<const char*, const char*> keys[] = {
        {"[GUI]\nlayouts=/etc:/nowhere\n", ":2: [GUI] layouts: names no folder that can be read: /nowhere"},
        {"[RestClient]\ncaFile=/nowhere\n", ":2: [RestClient] caFile: names no file that can be read: /nowhere"},
        {"[Logging]\nproperties=/nowhere\n", ":2: [Logging] properties: names no file that can be read: /nowhere"},
        {"[Logging]\nfolder=/proc/till\n", ":2: [Logging] folder: names no folder that can be made: /proc/till"},
        {"[Logging]\nfolder=/etc/hostname\n", ":2: [Logging] folder: names no folder that can be made: /etc/hostname"},
        {"[Database]\nname=/nowhere/g.sqlite\n",
         ":2: [Database] name: names a file in a folder that is not there: /nowhere"},
        {"[Database.doses]\nname=/nowhere/d.sqlite\ndriver=QSQLITE\n",
         ":2: [Database.doses] name: names a file in a folder that is not there: /nowhere"},
    };
    for (const auto& [content, problem] : keys) {
        write("register.ini", content);
        EXPECT_EQ(play("[]"), 3) << content;
        EXPECT_EQ(printedProblems(), QStringList(QString::fromUtf8(problem)));
        EXPECT_TRUE(output.endsWith(u"holds something that cannot be used, see above\n"_s)) << qPrintable(output);
        EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3) << content;
        EXPECT_EQ(printedProblems(), QStringList(QString::fromUtf8(problem)));
    }
}

TEST_F(RegisterProgram, lineThatIsNoEntry_isNamedAtTheStartAndByCheckConfig)
{
    write("register.ini", "[Register]\ndemoData=true\nthis is no entry\n");
    const QStringList expected(
        u":3: is neither a section nor a key with a value: write [Section], key=value, or ; before a comment"_s);
    EXPECT_EQ(play("[]"), 3);
    EXPECT_EQ(printedProblems(), expected);
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    EXPECT_EQ(printedProblems(), expected);
}

TEST_F(RegisterProgram, checkConfig_namesEntriesThatTheListsLeaveOutAndALanguageWithoutTexts)
{
    const auto checked = [this](const QByteArray& content) {
        write("register.ini", content);
        run(usualOptions() + QStringList{u"--check-config"_s});
        return printedProblems();
    };
    const QStringList right(u": nothing is wrong"_s);
    EXPECT_EQ(
        checked("[FunctionKeys]\nkeys=\"newReceiptKey, goodskey,subtotalKey\"\n"),
        QStringList(u":2: [FunctionKeys] keys: leaves out goodskey: give it an action in [FunctionKey.goodskey]"_s));
    EXPECT_EQ(checked("[Menu]\nentries=\"documentsEntry,weather\"\n[FunctionKey.weather]\naction=2000\n"), right);
    EXPECT_EQ(checked("[Menu]\nentries=\"documentsEntry,lockEntry,helpEntry,annulEntry,takeBackEntry,putAsideEntry,"
                      "cancelReceiptEntry,goodsKey,quantityKey,removeKey\"\n"),
              QStringList(u":2: [Menu] entries: leaves out removeKey: it holds 9 at most"_s));
    EXPECT_EQ(checked("[Language]\ninterface=xx\n"),
              QStringList(u":2: [Language] interface: names a language without a catalogue; Russian is taken"_s));
    for (const char* language : {"", "ru", "en", "en_GB"}) {
        EXPECT_EQ(checked(QByteArray("[Language]\ninterface=") + language + '\n'), right);
    }
}

TEST_F(RegisterProgram, checkConfigOfFoldersThatAreMadeAndOfNamesOnAServer_endsWithStatusZeroAndMakesNothing)
{
    write("register.ini", "[Logging]\nfolder=" + path("logs/till").toUtf8() +
                              "\n[Database]\nname=" + path("goods.sqlite").toUtf8() +
                              "\n[Database.doses]\ndriver=QPSQL\nname=/nowhere/doses\n");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 0) << qPrintable(output);
    EXPECT_FALSE(QFile::exists(path("logs")));
    EXPECT_FALSE(QFile::exists(path("goods.sqlite")));
}

TEST_F(RegisterProgram, checkConfig_namesTheMistakesAndEndsWithStatusThree)
{
    takeDisplayAway();
    write("register.ini", "[Register]\nUnlockCode=1234\n[RestClient]\ncaFile=/nowhere.pem\n");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    EXPECT_EQ(output, path("register.ini") +
                          u":2: [Register] UnlockCode: unknown key; did you mean [Register] unlockCode?\n"_s +
                          path("register.ini") +
                          u":4: [RestClient] caFile: names no file that can be read: /nowhere.pem\n"_s);
    EXPECT_TRUE(QDir(path("data")).isEmpty());
}

TEST_F(RegisterProgram, checkConfig_namesShortcutsThatTakeAnother)
{
    takeDisplayAway();
    write("register.ini", "[FunctionKey.goodsKey]\nkey=F11\n[FunctionKey.quantityKey]\nkey=F1\n"
                          "[FunctionKey.removeKey]\nkey=F6\n[FunctionKey.newReceiptKey]\nkey=Ctrl+F12\n");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    EXPECT_EQ(
        output,
        path("register.ini") +
            u":6: [FunctionKey.removeKey] key: is the shortcut of «Подытог» as well, which comes first: choose another\n"_s +
            path("register.ini") +
            u":4: [FunctionKey.quantityKey] key: takes F1 from the help, which then opens in forms only: choose another\n"_s +
            path("register.ini") +
            u":2: [FunctionKey.goodsKey] key: takes F11 from the payment by card, which then has its button only: "
            "choose another\n"_s +
            path("register.ini") +
            u":8: [FunctionKey.newReceiptKey] key: takes Ctrl+F12 from the message of the status line, which then has "
            "its button only: choose another\n"_s);
}

TEST_F(RegisterProgram, checkConfig_namesShortcutsThatTextFieldsOrTheWindowNeed)
{
    takeDisplayAway();
    const auto checked = [this](const QByteArray& key) {
        write("register.ini", "[FunctionKey.goodsKey]\nkey=" + key + '\n');
        run(usualOptions() + QStringList{u"--check-config"_s});
        return printedProblems();
    };
    for (const char* key :
         {"Ctrl+A", "Ctrl+C", "Ctrl+V", "Ctrl+X", "Ctrl+Z",    "A",    "Shift+7",    "Ю",         "Space",
          "Home",   "End",    "Del",    "Ins",    "Backspace", "Left", "Ctrl+Right", "Shift+Del", "Return",
          "Enter",  "Esc",    "Up",     "Down",   "PgUp",      "Tab",  "Shift+Tab"}) {
        EXPECT_EQ(checked(key),
                  QStringList(u":2: [FunctionKey.goodsKey] key: is needed for typing or for moving about: "
                              "choose another, for example F5 or Ctrl+R"_s))
            << key;
    }
    for (const char* key : {"F5", "Ctrl+F5", "Ctrl+R", "Alt+A", "Ctrl+Shift+F4"}) {
        EXPECT_EQ(checked(key), QStringList(u": nothing is wrong"_s)) << key;
    }
}

TEST_F(RegisterProgram, checkConfigOfARightConfiguration_endsWithStatusZero)
{
    takeDisplayAway();
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 0);
    EXPECT_EQ(output, path("register.ini") + u": nothing is wrong\n"_s);
}

TEST_F(RegisterProgram, checkConfigOfWhatCannotBeRead_endsWithStatusThree)
{
    write("register.ini", "[Register]\nthis is no entry\n");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    EXPECT_TRUE(output.contains(u"neither a section nor a key"_s)) << qPrintable(output);
    write("register.ini", "");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s, u"--plugins"_s, path("nowhere")}), 3);
    EXPECT_EQ(output, u"--plugins names no folder that can be read: "_s + path("nowhere") + u'\n');
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s, u"--layouts"_s, path("nowhere")}), 3);
    EXPECT_EQ(output, u"--layouts names no folder that can be read: "_s + path("nowhere") + u'\n');
}

TEST_F(RegisterProgram, keysOfAPlugin_areKnownFromItsFolder)
{
    write("register.ini", "[Weather]\nplace=here\n");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    ASSERT_TRUE(QDir(path("plugins")).mkdir(u"weather"_s));
    write("plugins/weather/configuration.json", R"({"keys": [{"key": "Weather:place", "type": "text"}]})");
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 0) << qPrintable(output);
}

TEST_F(RegisterProgram, demoGoodsForADatabaseOnAServer_areNotCreatedAndTheReportSaysSo)
{
    write("register.ini", "[Register]\ndemoData=true\n[Database]\ndriver=QPSQL\nhost=127.0.0.1\nport=1\nname=" +
                              path("goods").toUtf8() + '\n');
    const QStringList expected(
        u":2: [Register] demoData: has no effect: demo goods are created in a file only, and [Database] driver names a server"_s);
    EXPECT_EQ(run(usualOptions() + QStringList{u"--check-config"_s}), 3);
    EXPECT_EQ(printedProblems(), expected);
    EXPECT_EQ(play("[]"), 0) << qPrintable(output);
    EXPECT_EQ(printedProblems(), expected);
    EXPECT_FALSE(QFile::exists(path("goods")));
}

TEST_F(RegisterProgram, unlockCodeInAFileOfItsOwn_unlocksTheWindow)
{
    write("register.ini", "[Register]\ndemoData=true\nunlockCodeFile=code\n[GUI]\ninactivityLockSeconds=1\n");
    write("code", "2468\n");
    ASSERT_TRUE(QFile::setPermissions(path("code"), QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(play(R"([{"wait": "lockScreen", "seconds": 30}, {"type": "2468"}, {"key": "Return"},
                       {"visible": false, "in": "lockScreen"}, {"expect": "", "in": "statusMessageLabel"}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterProgram, secretsFileIsNotThere_endsWithStatusThreeWithKeyAndFile)
{
    write("register.ini", "[Register]\nunlockCodeFile=code\n");
    EXPECT_EQ(play("[]"), 3);
    EXPECT_EQ(printedProblems(),
              QStringList(u":2: [Register] unlockCodeFile: cannot be used: "_s + path("code") + u" is not there"_s));
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

TEST_F(RegisterProgram, inactivityAtAMessageOfTheStart_locksTheWindow)
{
    write("register.ini", "[Register]\ndemoData=true\n[GUI]\ninactivityLockSeconds=1\n");
    write("data/receipt.json", "{\"format\":");
    EXPECT_EQ(play(R"([{"wait": "messageForm"}, {"wait": "lockScreen", "seconds": 30}, {"key": "Space"},
                       {"visible": false, "in": "lockScreen"}, {"wait": "messageForm"}])"),
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
    EXPECT_TRUE(output.contains(path("register.ini") + u":3: [Register] unlockCode: has a character"_s))
        << qPrintable(output);
    EXPECT_FALSE(output.contains(u"schl"_s)) << "the code is secret";
    EXPECT_EQ(play("[]"), 0) << "a keyboard may type it";
}

TEST_F(RegisterProgram, checkConfigOfAnUnlockCodeThatTouchCannotType_endsWithStatusThreeAsTheStartDoes)
{
    static constexpr QFile::Permissions ownerAlone = QFile::ReadOwner | QFile::WriteOwner;
    const auto checked = [this](const QByteArray& content, const QStringList& options = {}) {
        write("register.ini", content);
        EXPECT_TRUE(QFile::setPermissions(path("register.ini"), ownerAlone));
        run(usualOptions() + QStringList{u"--check-config"_s} + options);
        return printedProblems().join(u'\n');
    };
    const QString problem = u" has a character that the keyboard on the screen does not have: choose a code of Russian "
                            "or Latin letters, digits and signs"_s;
    write("code", "schlüssel\n");
    ASSERT_TRUE(QFile::setPermissions(path("code"), ownerAlone));
    const QByteArray value = "[Register]\nunlockCode=schlüssel\n";
    const QByteArray inAFile = "[Register]\nunlockCodeFile=" + path("code").toUtf8() + '\n';
    const QByteArray touch = "[GUI]\ntouchMode=true\n";
    EXPECT_EQ(checked(value + touch), u":2: [Register] unlockCode:"_s + problem);
    EXPECT_EQ(checked(value, {u"--touch"_s}), u":2: [Register] unlockCode:"_s + problem);
    EXPECT_EQ(checked(inAFile + touch), u":2: [Register] unlockCodeFile:"_s + problem);
    EXPECT_EQ(checked(value), u": nothing is wrong"_s) << "a keyboard may type it";
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

/// A plug-in that misbehaves, in the program: tests/unit/register/plugins/mischievousplugin.h.
class RegisterWithMischief : public RegisterProgram
{
protected:
    RegisterWithMischief()
    {
        write("register.ini", "[Register]\ndemoData=true\n[FunctionKeys]\nkeys=mischief\n"
                              "[FunctionKey.mischief]\ntext=M\nkey=F6\naction=5001\n");
        EXPECT_TRUE(QFile::link(QString::fromUtf8(MISCHIEVOUS_PLUGIN), path("plugins/libmischievous_plugin.so")));
    }
    void arrange(const QString& mischief) { environment.insert(u"MISCHIEF"_s, mischief); }
    QString log() const
    {
        QFile file(path("data/log/register.log"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    static constexpr auto sale = R"({"type": "2990000000019"}, {"key": "Return"},
                                    {"receipt": {"positions": [{"quantity": 1}]}})";
};

TEST_F(RegisterWithMischief, destructorThrows_isLoggedWithTheNameAndTheExitStatusIsTheUsualOne)
{
    arrange(u"destructor throwStandard"_s);
    EXPECT_EQ(play(QByteArray("[") + sale + "]"), 0) << qPrintable(output);
    EXPECT_TRUE(log().contains(u"ends the process; plug-in: mischievous_plugin"_s)) << qPrintable(log());
    EXPECT_EQ(savedDocument().value(u"positions"_s).toArray().size(), 1);
}

TEST_F(RegisterWithMischief, constructorThrows_isNamedInTheStatusLineAndTheRegisterSells)
{
    arrange(u"constructor throwStandard"_s);
    EXPECT_EQ(
        play(QByteArray(R"([{"contains": "mischievous_plugin: внутренняя ошибка", "in": "statusMessageLabel"},)") +
             sale + "]"),
        0)
        << qPrintable(output);
}

TEST_F(RegisterWithMischief, timerThrows_isNamedInTheStatusLineAndTheRegisterSells)
{
    arrange(u"timer throwForCashier"_s);
    EXPECT_EQ(play(QByteArray("[") + sale +
                   R"(, {"key": "F6"}, {"expect": "Сбой модуля «mischievous_plugin». Шалость удалась",
                        "in": "statusMessageLabel"}, {"type": "2990000000019"}, {"key": "Return"},
                       {"receipt": {"positions": [{"quantity": 2}]}}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterWithMischief, listenerThrows_isNamedInTheStatusLineAndInTheLogAndTheRegisterSells)
{
    arrange(u"handleEvent throwForCashier"_s);
    EXPECT_EQ(play(QByteArray("[") + sale +
                   R"(, {"expect": "Сбой модуля «mischievous_plugin». Шалость удалась",
                        "in": "statusMessageLabel"}, {"type": "2990000000019"}, {"key": "Return"},
                       {"receipt": {"positions": [{"quantity": 2}]}}])"),
              0)
        << qPrintable(output);
    EXPECT_TRUE(log().contains(u"of the plug-in mischievous_plugin failed in event 10"_s)) << qPrintable(log());
}

TEST_F(RegisterWithMischief, pluginEndsByItself_isNotCountedAnyMoreAndNamedInTheStatusLine)
{
    arrange(u"handlerDeletesThePlugin"_s);
    EXPECT_EQ(play(QByteArray(R"([{"expect": "Модулей: 1", "in": "pluginStateLabel"}, )") + sale +
                   R"(, {"key": "F6"}, {"expect": "Модулей нет", "in": "pluginStateLabel"},
                       {"contains": "mischievous_plugin: завершил работу", "in": "statusMessageLabel"},
                       {"type": "2990000000019"}, {"key": "Return"}, {"receipt": {"positions": [{"quantity": 2}]}}])"),
              0)
        << qPrintable(output);
}

TEST_F(RegisterWithMischief, commandDoesNotEndWhenTheWindowIsClosed_endsWithStatusNineAndTheDocumentIsSaved)
{
    arrange(u"askForEverAndSwallow"_s);
    EXPECT_EQ(
        play(QByteArray("[") + sale +
             R"(, {"key": "F6"}, {"wait": "mischievousForm"}, {"close": true}, {"wait": "nothing", "seconds": 60}])"),
        9)
        << qPrintable(output);
    EXPECT_TRUE(log().contains(u"does not end"_s)) << qPrintable(log());
    EXPECT_EQ(savedDocument().value(u"positions"_s).toArray().size(), 1);
}
