// SPDX-License-Identifier: MIT
#include "scanfilter.h"
#include "uitest.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace
{

class ScanFilterTest : public UiTest
{
protected:
    ScanFilterTest()
    {
        QObject::connect(&field, &QLineEdit::returnPressed, [this] { ++returns; });
    }

    /// Keys into a widget, `gap` milliseconds apart, Return at the end.
    void send(QWidget& receiver, const QString& text, quint64 gap)
    {
        for (const QChar character : text + u'\r') {
            const int code = character == u'\r' ? int(Qt::Key_Return) : character.unicode();
            QKeyEvent key(QEvent::KeyPress, code, Qt::NoModifier, character);
            key.setTimestamp(m_time += gap);
            QCoreApplication::sendEvent(&receiver, &key);
        }
    }

    QLineEdit field;
    int returns = 0;

private:
    quint64 m_time = 1000;
};

TEST_F(ScanFilterTest, scanIntoTheField_isHandedOverAndTheFieldIsAsBefore)
{
    ScanFilter filter(field);
    const QSignalSpy scans(&filter, &ScanFilter::scanned);
    field.setText(u"2.5"_s);
    send(field, u"4601234567890"_s, 10);
    EXPECT_EQ(scans.count(), 1);
    EXPECT_EQ(scans.value(0).value(0), u"4601234567890"_s);
    EXPECT_EQ(field.text(), u"2.5"_s);
    EXPECT_EQ(returns, 0);
}

TEST_F(ScanFilterTest, textTyped_staysInTheFieldWithItsReturn)
{
    ScanFilter filter(field);
    const QSignalSpy scans(&filter, &ScanFilter::scanned);
    send(field, u"4601234567890"_s, 200);
    EXPECT_EQ(scans.count(), 0);
    EXPECT_EQ(field.text(), u"4601234567890"_s);
    EXPECT_EQ(returns, 1);
}

TEST_F(ScanFilterTest, scannerConfigured_itsPrefixAndSuffixAreTakenOff)
{
    config.setForThisRun(u"Scanner:prefix"_s, u";"_s);
    config.setForThisRun(u"Scanner:suffix"_s, u"?"_s);
    ScanFilter filter(field);
    const QSignalSpy scans(&filter, &ScanFilter::scanned);
    send(field, u";99?"_s, 200);
    EXPECT_EQ(scans.value(0).value(0), u"99"_s);
}

TEST_F(ScanFilterTest, scanWhileAWatchedButtonHasTheFocus_isHandedOver)
{
    QPushButton button;
    ScanFilter filter(field);
    filter.watch(button);
    const QSignalSpy scans(&filter, &ScanFilter::scanned);
    field.setText(u"100"_s);
    send(button, u"4601234567890"_s, 10);
    EXPECT_EQ(scans.value(0).value(0), u"4601234567890"_s);
    EXPECT_EQ(field.text(), u"100"_s);
}

TEST_F(ScanFilterTest, watchedWidgets_areMarkedSoThatReturnReachesThem)
{
    QPushButton button;
    ScanFilter filter(field);
    EXPECT_EQ(field.property(ScanRecognizer::recognizesScans), true);
    filter.watch(button);
    EXPECT_EQ(button.property(ScanRecognizer::recognizesScans), true);
}

} // namespace
