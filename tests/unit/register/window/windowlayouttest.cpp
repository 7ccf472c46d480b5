// SPDX-License-Identifier: MIT
// The window's own layout, in the sizes that the register is made for, with and without touch mode.
#include "styledscreen.h"
#include "windowfixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

class WindowLayout : public WindowFixture, public ::testing::WithParamInterface<std::tuple<QSize, bool, int>>
{
protected:
    WindowLayout()
    {
        const auto& [size, touch, keys] = GetParam();
        config.set(u"GUI:touchMode"_s, touch ? u"true"_s : u"false"_s);
        QStringList names{u"newReceiptKey"_s, u"goodsKey"_s,         u"quantityKey"_s, u"subtotalKey"_s,
                          u"removeKey"_s,     u"cancelReceiptKey"_s, u"menuKey"_s};
        for (int more = int(names.size()) + 1; more < keys; ++more) {
            const QString name = u"more%1Key"_s.arg(more);
            config.set(u"FunctionKey.%1:text"_s.arg(name), u"Электронный рецепт"_s);
            config.set(u"FunctionKey.%1:action"_s.arg(name), u"94"_s);
            names.append(name);
        }
        names.append(u"paymentKey"_s);
        config.set(u"FunctionKeys:keys"_s, names.join(u','));
        styled.emplace(size);
    }
    void openSized()
    {
        openWindow();
        window->resize(std::get<QSize>(GetParam()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return window->size() == std::get<QSize>(GetParam()); }));
        QApplication::processEvents();
    }
    QList<QPushButton*> keys() const { return widget<QWidget>("functionKeyBar")->findChildren<QPushButton*>(); }
    /// Nothing covers it, nothing cuts it off.
    void expectWhole(const QWidget& seen) const
    {
        const QRect place(seen.mapTo(window.get(), QPoint()), seen.size());
        EXPECT_TRUE(window->rect().contains(place)) << qPrintable(seen.objectName());
        EXPECT_EQ(seen.visibleRegion().boundingRect(), seen.rect()) << qPrintable(seen.objectName());
        EXPECT_EQ(window->childAt(place.center()), &seen) << qPrintable(seen.objectName());
    }

    std::optional<StyledScreen> styled; ///< made when the mode is configured
};

TEST_P(WindowLayout, everyFunctionKey_isWholeAndTakesAClick)
{
    openSized();
    ASSERT_EQ(keys().size(), std::get<int>(GetParam()));
    for (QPushButton* key : keys()) {
        expectWhole(*key);
        EXPECT_GE(key->height(), key->sizeHint().height()) << qPrintable(key->objectName());
        EXPECT_GE(key->width(), key->sizeHint().width()) << qPrintable(key->objectName());
    }
    till->add(article(amoxidar));
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      widget<QWidget>("paymentKey")->mapTo(window.get(), QPoint(20, 20)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return till->phase() == Till::Phase::Payment; }));
}

TEST_P(WindowLayout, payment_isWholeAboveTheFunctionKeys)
{
    openSized();
    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Payment);
    QApplication::processEvents();
    for (const char* name : {"payButton", "backButton", "receivedLineEdit"}) {
        expectWhole(*widget<QWidget>(name));
    }
    for (QPushButton* key : keys()) {
        expectWhole(*key);
    }
    EXPECT_EQ(window->size(), std::get<QSize>(GetParam()));
}

TEST_P(WindowLayout, greatAmounts_areWholeAtThePayment)
{
    config.set(u"Register:currency"_s, u"BYN"_s);
    openSized();
    till->open();
    till->document()->add({.name = u"Бинт"_s, .price = Kopecks{999'999'999}}, {});
    till->setPhase(Till::Phase::Payment);
    QApplication::processEvents();
    auto* received = widget<QLineEdit>("receivedLineEdit");
    for (const QString& typed : {QString(), u"9999999.99"_s}) {
        received->setText(typed);
        QApplication::processEvents();
        for (const char* name : {"paymentCaptionLabel", "paymentSumLabel", "paymentCurrencyLabel", "changeLabel"}) {
            const auto* label = widget<QLabel>(name);
            expectWhole(*label);
            EXPECT_GE(label->width(), label->sizeHint().width()) << name;
        }
        const int room = received->width() - 2 * (8 + 1); // without padding and border
        const QString shown = typed.isEmpty() ? received->placeholderText() : typed;
        EXPECT_GE(room, received->fontMetrics().horizontalAdvance(shown)) << qPrintable(shown);
        EXPECT_GE(received->height() - 2 * (5 + 1), received->fontMetrics().height());
        expectWhole(*received);
    }
    EXPECT_EQ(received->fontInfo().pixelSize(), widget<QLabel>("paymentSumLabel")->fontInfo().pixelSize());
}

TEST_P(WindowLayout, greatTotal_isWholeBesideTheSearch)
{
    config.set(u"Register:currency"_s, u"BYN"_s);
    openSized();
    till->open();
    till->document()->add({.name = u"Бинт"_s, .price = Kopecks{999'999'999}}, {});
    emit till->changed();
    QApplication::processEvents();
    for (const char* name : {"totalCaptionLabel", "totalLabel", "totalCurrencyLabel"}) {
        const auto* label = widget<QLabel>(name);
        expectWhole(*label);
        EXPECT_GE(label->width(), label->sizeHint().width()) << name;
    }
    EXPECT_EQ(widget<QLabel>("totalCurrencyLabel")->text(), u"BYN"_s);
}

INSTANTIATE_TEST_SUITE_P(, WindowLayout,
                         ::testing::Combine(::testing::Values(QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)),
                                            ::testing::Bool(), ::testing::Values(8, 10, 14)),
                         [](const auto& instance) {
                             return std::to_string(std::get<QSize>(instance.param).width()) +
                                    (std::get<bool>(instance.param) ? "touch" : "keys") +
                                    std::to_string(std::get<int>(instance.param));
                         });
