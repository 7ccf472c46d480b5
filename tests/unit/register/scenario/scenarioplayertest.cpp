// SPDX-License-Identifier: MIT
#include "scenarioplayer.h"
#include "widgettext.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ScenarioPlayerTest : public ::testing::Test
{
protected:
    ScenarioPlayerTest()
    {
        auto* layout = new QVBoxLayout(&window);
        const auto add = [layout](QWidget* widget, const char* name) {
            widget->setObjectName(QLatin1StringView(name));
            layout->addWidget(widget);
        };
        label = new QLabel(u"1"_s + QChar(QChar::Nbsp) + u"234"_s);
        add(label, "label");
        edit = new QLineEdit;
        add(edit, "edit");
        button = new QPushButton(u"Button"_s);
        add(button, "button");
        table = new QTableView;
        model.appendRow({new QStandardItem(u"a"_s), new QStandardItem(u"b"_s)});
        model.appendRow({new QStandardItem(u"c"_s), new QStandardItem(u"d"_s)});
        table->setModel(&model);
        add(table, "table");
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// Plays steps to their end. @return whether all passed
    bool play(const QByteArray& steps)
    {
        const auto scenario = parseScenario("{\"steps\": " + steps + "}");
        if (!scenario) {
            ADD_FAILURE() << scenario.failure().detail.toStdString();
            return false;
        }
        ScenarioPlayer player(*scenario, folder.path(), folder.path());
        QSignalSpy finished(&player, &ScenarioPlayer::finished);
        QObject::connect(&player, &ScenarioPlayer::finished, [] { // an open dialog keeps its event loop running
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                dialog->close();
            }
        });
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        player.start();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !finished.isEmpty(); }, 30'000));
        printed = QString::fromStdString(testing::internal::GetCapturedStdout());
        failure = QString::fromStdString(testing::internal::GetCapturedStderr());
        return !finished.isEmpty() && finished.constFirst().constFirst().toBool();
    }

    QTemporaryDir folder;
    QWidget window;
    QStandardItemModel model;
    QLabel* label;
    QLineEdit* edit;
    QPushButton* button;
    QTableView* table;
    QString printed;
    QString failure;
};

TEST_F(ScenarioPlayerTest, noSteps_pass)
{
    EXPECT_TRUE(play("[]"));
}

TEST_F(ScenarioPlayerTest, typed_replacesTheFormerText)
{
    edit->setText(u"old"_s);
    EXPECT_TRUE(play(R"([{"type": "Ёж 1+x", "into": "edit"}, {"expect": "Ёж 1+x", "in": "edit"}])"));
}

TEST_F(ScenarioPlayerTest, keyWithTimes_isPressedThatOften)
{
    int presses = 0;
    QObject::connect(edit, &QLineEdit::returnPressed, [&presses] { ++presses; });
    edit->setFocus();
    EXPECT_TRUE(play(R"([{"key": "Return", "times": 10}, {"say": "x"}])"));
    QApplication::processEvents();
    EXPECT_EQ(presses, 10);
}

TEST_F(ScenarioPlayerTest, keyPressed_reachesShortcuts)
{
    QShortcut shortcut(QKeySequence(Qt::Key_F5), &window);
    QObject::connect(&shortcut, &QShortcut::activated, [this] { label->setText(u"F5"_s); });
    EXPECT_TRUE(play(R"([{"key": "F5"}, {"expect": "F5", "in": "label"}])"));
}

TEST_F(ScenarioPlayerTest, scanned_endsWithReturn)
{
    QString scanned;
    QObject::connect(edit, &QLineEdit::returnPressed, [&] { scanned = edit->text(); });
    EXPECT_TRUE(play(R"([{"scan": "4601234", "into": "edit"}, {"expect": "4601234", "in": "edit"}])"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return scanned == u"4601234"_s; }));
}

TEST_F(ScenarioPlayerTest, clickThatOpensADialog_theNextStepsRunInsideIt)
{
    QObject::connect(button, &QPushButton::clicked, [this] {
        QDialog dialog(&window);
        dialog.setObjectName(u"dialog"_s);
        auto* close = new QPushButton(u"Close"_s, &dialog);
        close->setObjectName(u"close"_s);
        QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
        dialog.exec();
        label->setText(u"closed"_s);
    });
    EXPECT_TRUE(play(R"([{"click": "button"}, {"wait": "close"}, {"visible": false, "in": "label"}, {"click": "close"},
                         {"expect": "closed", "in": "label"}])"))
        << qPrintable(failure);
}

TEST_F(ScenarioPlayerTest, table_isReadAndItsRowMadeCurrent)
{
    EXPECT_TRUE(play(R"([{"expect": "a | b\nc | d", "in": "table"}, {"row": 1, "in": "table"}, {"print": "table"}])"));
    EXPECT_EQ(table->currentIndex().row(), 1);
    EXPECT_EQ(printed, u"a | b\nc | d\n"_s);
}

TEST_F(ScenarioPlayerTest, noBreakSpaces_areReadAsPlainOnes)
{
    EXPECT_TRUE(play(R"([{"expect": "1 234", "in": "label"}])"));
}

TEST_F(ScenarioPlayerTest, stateOfAWidget_isCompared)
{
    button->setEnabled(false);
    EXPECT_TRUE(play(R"([{"enabled": false, "in": "button"}, {"enabled": true, "in": "edit"},
                         {"visible": true, "in": "button"}, {"visible": false, "in": "none"}])"));
    EXPECT_FALSE(play(R"([{"enabled": true, "in": "button", "seconds": 0}])"));
    EXPECT_FALSE(play(R"([{"click": "button", "seconds": 0}])"));
}

TEST_F(ScenarioPlayerTest, receipt_comparesTheSavedOpenDocument)
{
    EXPECT_FALSE(play(R"([{"receipt": {"number": 1}, "seconds": 0}])"));
    QFile saved(folder.filePath(u"receipt.json"_s));
    ASSERT_TRUE(saved.open(QIODevice::WriteOnly));
    saved.write(R"({"number": 1, "positions": []})");
    saved.close();
    EXPECT_TRUE(play(R"([{"receipt": {"number": 1}}])"));
    EXPECT_FALSE(play(R"([{"receipt": {"number": 2}, "seconds": 0}])"));
    EXPECT_TRUE(failure.contains(u"number is 1 instead of 2"_s)) << qPrintable(failure);
}

TEST_F(ScenarioPlayerTest, document_comparesTheNamedFileOfTheDataFolder)
{
    const QByteArray step = R"({"document": {"state": "closed"}, "file": "finished/00000007.json", "seconds": 0})";
    EXPECT_FALSE(play("[" + step + "]"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"finished"_s));
    QFile saved(folder.filePath(u"finished/00000007.json"_s));
    ASSERT_TRUE(saved.open(QIODevice::WriteOnly));
    saved.write(R"({"state": "closed", "number": 7})");
    saved.close();
    EXPECT_TRUE(play("[" + step + "]"));
    EXPECT_FALSE(play(R"([{"document": {"number": 8}, "file": "finished/00000007.json", "seconds": 0}])"));
}

TEST_F(ScenarioPlayerTest, printed_ignoresRunsOfBlanks)
{
    EXPECT_FALSE(play(R"([{"printed": "ИТОГО", "number": 7, "seconds": 0}])"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"printed"_s));
    QFile paper(folder.filePath(u"printed/00000007.txt"_s));
    ASSERT_TRUE(paper.open(QIODevice::WriteOnly));
    paper.write("ЧЕК № 7\nИТОГО          12,40\n");
    paper.close();
    EXPECT_TRUE(play(R"([{"printed": "№ 7 ИТОГО 12,40", "number": 7}])"));
    EXPECT_FALSE(play(R"([{"printed": "ИТОГО 12,50", "number": 7, "seconds": 0}])"));
}

TEST_F(ScenarioPlayerTest, screenshot_isWritten)
{
    EXPECT_TRUE(play(R"([{"screenshot": "shot"}])"));
    EXPECT_FALSE(QImage(folder.filePath(u"shot.png"_s)).isNull());
}

TEST_F(ScenarioPlayerTest, failedStep_isReportedWithTheReasonAndAPicture)
{
    EXPECT_FALSE(play(R"([{"say": "first"}, {"expect": "x", "in": "button", "seconds": 0}, {"say": "never"}])"));
    EXPECT_EQ(printed, u"first\n"_s);
    EXPECT_TRUE(failure.startsWith(u"Step 2 of 3 failed: {\"expect\":\"x\""_s)) << qPrintable(failure);
    EXPECT_TRUE(failure.contains(u"button shows \"Button\""_s)) << qPrintable(failure);
    EXPECT_FALSE(QImage(folder.filePath(u"failure.png"_s)).isNull());
}

TEST_F(ScenarioPlayerTest, widgetShownLater_isWaitedFor)
{
    QTimer::singleShot(200, label, [this] { label->setText(u"late"_s); });
    EXPECT_TRUE(play(R"([{"expect": "late", "in": "label"}])"));
}

TEST_F(ScenarioPlayerTest, charactersBeyondTheBasicPlane_areTypedAndScannedWhole)
{
    EXPECT_TRUE(play(R"([{"type": "a😀б", "into": "edit"}, {"expect": "a😀б", "in": "edit"}])")) << qPrintable(failure);
    EXPECT_TRUE(play(R"([{"scan": "𝟙2", "into": "edit"}, {"expect": "𝟙2", "in": "edit"}])")) << qPrintable(failure);
}

TEST_F(ScenarioPlayerTest, clickOnAWidgetThatIsClippedAway_failsAndClicksNothing)
{
    QWidget frame(&window);
    frame.setGeometry(0, 0, 40, 40);
    QPushButton clipped(u"x"_s, &frame);
    clipped.setObjectName(u"clipped"_s);
    frame.show();
    int clicks = 0;
    QObject::connect(&clipped, &QPushButton::clicked, [&clicks] { ++clicks; });
    for (const QRect& out : {QRect(50, 0, 30, 30), QRect(30, 0, 30, 30), QRect(0, -28, 30, 30)}) {
        clipped.setGeometry(out);
        EXPECT_FALSE(play(R"([{"click": "clipped", "seconds": 0}])"));
        EXPECT_TRUE(failure.contains(u"clipped cannot be seen"_s)) << qPrintable(failure);
    }
    clipped.setGeometry(10, 10, 20, 20);
    EXPECT_TRUE(play(R"([{"click": "clipped"}])")) << qPrintable(failure);
    EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks == 1; }));
    EXPECT_EQ(clicks, 1);
}

TEST(WidgetText, hiddenColumns_areLeftOut)
{
    QStandardItemModel model;
    model.appendRow({new QStandardItem(u"a"_s), new QStandardItem(u"b"_s)});
    QTableView table;
    EXPECT_EQ(widgetText(table), QString());
    table.setModel(&model);
    table.hideColumn(0);
    EXPECT_EQ(widgetText(table), u"b"_s);
    EXPECT_EQ(widgetText(QWidget()), QString());
}
