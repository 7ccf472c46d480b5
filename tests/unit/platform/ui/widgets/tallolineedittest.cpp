// SPDX-License-Identifier: MIT
#include "tallolineedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QTest>

#include <gmock/gmock.h>

namespace
{

TEST(TalloLineEditTest, commaTypedIntoANumber_isAPoint)
{
    TalloLineEdit edit;
    edit.setNumeric(true);
    QTest::keyClicks(&edit, "2,5");
    EXPECT_EQ(edit.text(), "2.5");
}

TEST(TalloLineEditTest, commaTypedIntoANumberWithAMask_isAPoint)
{
    TalloLineEdit edit;
    edit.setNumeric(true);
    QRegularExpressionValidator mask(QRegularExpression("\\d{1,9}(\\.)\\d{0,2}|\\d{1,9}"));
    edit.setValidator(&mask);
    QTest::keyClicks(&edit, "12,505");
    EXPECT_EQ(edit.text(), "12.50");
}

TEST(TalloLineEditTest, lettersOnTheKeysOfCommaAndPointTypedIntoANumber_areAPoint)
{
    for (const QChar letter : {QChar(u'б'), QChar(u'ю'), QChar(u'Б'), QChar(u'Ю')}) {
        TalloLineEdit edit;
        edit.setNumeric(true);
        QRegularExpressionValidator mask(QRegularExpression("\\d{1,9}(\\.)\\d{0,2}|\\d{1,9}"));
        edit.setValidator(&mask);
        QTest::keyClicks(&edit, "2");
        QKeyEvent key(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter);
        QCoreApplication::sendEvent(&edit, &key);
        QTest::keyClicks(&edit, "5");
        EXPECT_EQ(edit.text(), "2.5") << QString(letter).toStdString();
    }
}

TEST(TalloLineEditTest, lettersOnTheKeysOfCommaAndPointTypedIntoAText_stayLetters)
{
    TalloLineEdit edit;
    QKeyEvent key(QEvent::KeyPress, QChar(u'Ю').unicode(), Qt::NoModifier, QChar(u'ю'));
    QCoreApplication::sendEvent(&edit, &key);
    EXPECT_EQ(edit.text(), QChar(u'ю'));
}

TEST(TalloLineEditTest, commaPastedIntoANumber_isAPoint)
{
    QGuiApplication::clipboard()->setText("3,75");
    TalloLineEdit edit;
    edit.setNumeric(true);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), "3.75");
}

TEST(TalloLineEditTest, commaTypedIntoAText_staysAComma)
{
    TalloLineEdit edit;
    QTest::keyClicks(&edit, "a,b");
    EXPECT_EQ(edit.text(), "a,b");
}

TEST(TalloLineEditTest, readOnlyNumber_takesNoPaste)
{
    QGuiApplication::clipboard()->setText("3,75");
    TalloLineEdit edit;
    edit.setNumeric(true);
    edit.setReadOnly(true);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), "");
}

} // namespace
