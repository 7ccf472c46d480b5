// SPDX-License-Identifier: MIT
// Scans into the search of the sales screen and into the fields of forms, as the window system delivers them.
#include "windowfixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

struct Scanner {
    const char* name;
    QString prefix;
    QString suffix;
};

} // namespace

class Scanning : public WindowFixture, public ::testing::WithParamInterface<Scanner>
{
protected:
    Scanning()
    {
        config.set(u"Scanner:prefix"_s, GetParam().prefix);
        config.set(u"Scanner:suffix"_s, GetParam().suffix);
        // A scan that is taken for something else opens a form, and the test would wait for its answer.
        wayOut.callOnTimeout([this] { gui.object.cancelForms(); });
        wayOut.start(std::chrono::seconds(10));
    }
    void scanCode(const QString& code) { scanInWindow(GetParam().prefix + code + GetParam().suffix); }
    static void type(const QString& text) { qobject_cast<QLineEdit*>(QApplication::focusWidget())->insert(text); }
    bool hasPositions(int count)
    {
        return QTest::qWaitFor([this, count] {
            return !controller.object.isBusy() && till->document() && till->document()->positions().size() == count;
        });
    }
    void inGoodsSelection(const std::function<void(QLineEdit& filter)>& act)
    {
        cashier.onForm(u"goodsSelectionForm"_s,
                       [act](QWidget& root) { act(*root.findChild<QLineEdit*>(u"filterLineEdit"_s)); });
        press(Qt::Key_F3);
    }

    QTimer wayOut;
};

TEST_P(Scanning, inTheSearch_theGoodsAreAdded)
{
    openWindow();
    scanCode(amoxidar);
    ASSERT_TRUE(hasPositions(1));
    EXPECT_TRUE(widget<QLineEdit>("searchLineEdit")->text().isEmpty());
}

TEST_P(Scanning, inTheSearchAfterTyping_replacesWhatWasTyped)
{
    openWindow();
    type(u"амо"_s);
    scanCode(amoxidar);
    ASSERT_TRUE(hasPositions(1));
    EXPECT_TRUE(widget<QLineEdit>("searchLineEdit")->text().isEmpty());
}

TEST_P(Scanning, withTheFocusOnAFunctionKey_theGoodsAreAdded)
{
    openWindow();
    type(u"амо"_s);
    widget<QPushButton>("goodsKey")->setFocus(Qt::TabFocusReason);
    scanCode(amoxidar);
    ASSERT_TRUE(hasPositions(1));
}

TEST_P(Scanning, inTheGoodsFilter_theSecondScanReplacesTheFirst)
{
    openWindow();
    inGoodsSelection([this](QLineEdit& filter) {
        scanCode(u"4600000000000"_s);
        EXPECT_EQ(filter.text(), u"4600000000000"_s) << "goods that are not there choose nothing";
        scanCode(amoxidar);
    });
    ASSERT_TRUE(hasPositions(1));
    EXPECT_EQ(till->document()->positions().first()->getName(), article(amoxidar).goods.name);
}

TEST_P(Scanning, inTheGoodsFilterAfterTyping_replacesWhatWasTyped)
{
    openWindow();
    inGoodsSelection([this](QLineEdit& filter) {
        type(u"бинт"_s);
        scanCode(u"4600000000000"_s);
        EXPECT_EQ(filter.text(), u"4600000000000"_s);
        press(Qt::Key_Escape);
    });
    ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
    ASSERT_TRUE(becomesIdle());
}

TEST_P(Scanning, inTheUnlockCode_isTheCodeOfABadge)
{
    openWindow(u"777000111"_s);
    window->lock();
    QTest::keyClicks(QApplication::focusWidget(), u"12"_s);
    scanCode(u"777000111"_s);
    EXPECT_FALSE(isSeen("lockScreen"));
}

INSTANTIATE_TEST_SUITE_P(, Scanning,
                         ::testing::Values(Scanner{"plain", {}, {}}, Scanner{"prefix", u"]"_s, {}},
                                           Scanner{"suffix", {}, u"?"_s}, Scanner{"both", u";%"_s, u"?#"_s}),
                         [](const auto& instance) { return std::string(instance.param.name); });
