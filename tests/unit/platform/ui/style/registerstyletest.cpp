// SPDX-License-Identifier: MIT
#include "registerstyle.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "uitest.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>

namespace
{

class RegisterStyleTest : public UiTest
{
protected:
    ~RegisterStyleTest() override
    {
        applyRegisterStyle(*qApp, {1024, 600}); // the scale of the other tests
        qApp->setStyleSheet({});
    }
};

TEST_F(RegisterStyleTest, everyTextOnItsGround_hasAContrastOfFourAndAHalf)
{
    for (const RegisterColours::Pair& pair : RegisterColours().textPairs()) {
        EXPECT_GE(RegisterColours::contrast(pair.text, pair.ground), 4.5)
            << pair.text.name().toStdString() << " on " << pair.ground.name().toStdString();
    }
}

TEST_F(RegisterStyleTest, focusRings_standOutFromWhatTheySurround)
{
    const RegisterColours colours;
    EXPECT_GE(RegisterColours::contrast(colours.accent, colours.ground), 3.0);
    EXPECT_GE(RegisterColours::contrast(colours.accent, colours.panel), 3.0);
    EXPECT_GE(RegisterColours::contrast(colours.text, colours.ground), 3.0);
}

TEST_F(RegisterStyleTest, placeholder_isAsReadableAsAHint)
{
    applyRegisterStyle(*qApp, {1024, 600});
    TalloLineEdit edit;
    edit.ensurePolished();
    EXPECT_EQ(edit.palette().color(QPalette::PlaceholderText), RegisterColours().mutedText);
    EXPECT_EQ(edit.palette().color(QPalette::Text), RegisterColours().text);
}

TEST_F(RegisterStyleTest, scrollBar_handleStandsOutFromItsGround)
{
    for (const bool touch : {false, true}) {
        qApp->setStyleSheet(registerStyleSheet(touch, 12));
        QScrollBar bar(Qt::Vertical);
        bar.setRange(0, 100);
        bar.setPageStep(20);
        bar.resize(bar.sizeHint().width(), 400);
        const QImage picture = bar.grab().toImage();
        const int middle = picture.width() / 2;
        EXPECT_GE(RegisterColours::contrast(picture.pixelColor(middle, 20), picture.pixelColor(middle, 380)), 3.0);
        EXPECT_EQ(picture.pixelColor(middle, 380), RegisterColours().raised);
    }
}

TEST_F(RegisterStyleTest, contrast_isThatOfTheGuideline)
{
    EXPECT_NEAR(RegisterColours::contrast(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(RegisterColours::contrast(Qt::white, Qt::white), 1.0, 0.001);
    EXPECT_NEAR(RegisterColours::contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST_F(RegisterStyleTest, styleSheet_hasEveryColourFilledIn)
{
    for (const bool touch : {false, true}) {
        const QString sheet = registerStyleSheet(touch, 12);
        EXPECT_THAT(sheet.toStdString(), ::testing::HasSubstr(RegisterColours().accent.name().toStdString()));
        EXPECT_FALSE(sheet.contains(u'@'));
    }
}

TEST_F(RegisterStyleTest, noTypeIsSmallerThanElevenPoints)
{
    applyRegisterStyle(*qApp, {1024, 600});
    EXPECT_GE(qApp->font().pointSize(), 11);
    static const QRegularExpression size("font-size: *(\\d+)pt");
    auto match = size.globalMatch(registerStyleSheet(true, registerTextSize({1024, 600})));
    ASSERT_TRUE(match.hasNext());
    while (match.hasNext()) {
        EXPECT_GE(match.next().captured(1).toInt(), 11);
    }
}

TEST_F(RegisterStyleTest, typeGrowsWithTheWindow_headingsToo)
{
    const std::tuple<QSize, int, QString> sizes[] = {
        {{1024, 600}, 11, "15pt"}, {{1280, 800}, 13, "17pt"}, {{1920, 1080}, 17, "21pt"}, {{3840, 2160}, 24, "28pt"}};
    for (const auto& [window, text, title] : sizes) {
        applyRegisterStyle(*qApp, window);
        EXPECT_EQ(qApp->font().pointSize(), text) << window.width();
        EXPECT_TRUE(qApp->styleSheet().contains("QLabel#titleLabel { font-size: " + title)) << window.width();
    }
}

TEST_F(RegisterStyleTest, windowHighButNarrow_typeIsThatOfItsWidth)
{
    EXPECT_EQ(registerTextSize({1024, 1080}), 11);
    EXPECT_EQ(registerTextSize({1920, 600}), 11);
    EXPECT_EQ(registerTextSize({640, 480}), 11);
}

TEST_F(RegisterStyleTest, lengths_growWithTheType)
{
    applyRegisterStyle(*qApp, {1920, 1080});
    EXPECT_EQ(scaledPixels(110), 170);
    TalloTableView table;
    EXPECT_EQ(table.verticalHeader()->defaultSectionSize(), scaledPixels(32));
    applyRegisterStyle(*qApp, {1024, 600});
    EXPECT_EQ(scaledPixels(110), 110);
}

TEST_F(RegisterStyleTest, largerType_isAsMuchLargerThanTheTextInEveryWindow)
{
    const std::tuple<const char*, const char*, int> sizes[] = {
        {"textSize", "title", 4}, {"textSize", "amount", 8}, {"textSize", "sum", 16}, {"textRole", "done", 4}};
    for (const QSize window : {QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)}) {
        applyRegisterStyle(*qApp, window);
        for (const auto& [property, value, above] : sizes) {
            QLabel label;
            label.setProperty(property, QString(value));
            label.ensurePolished();
            EXPECT_EQ(label.font().pointSize(), registerTextSize(window) + above) << value << " at " << window.width();
            EXPECT_GE(label.font().weight(), QFont::DemiBold) << value;
        }
    }
}

TEST_F(RegisterStyleTest, stylePropertySet_styleSheetIsAppliedAgain)
{
    applyRegisterStyle(*qApp, {1024, 600});
    QLabel label("Код не подходит");
    label.ensurePolished();
    ASSERT_NE(label.palette().color(QPalette::WindowText), RegisterColours().error);
    setStyleProperty(label, "textRole", "error");
    EXPECT_EQ(label.palette().color(QPalette::WindowText), RegisterColours().error);
}

TEST_F(RegisterStyleTest, inTouchMode_targetsAreForFingers)
{
    setTouchMode();
    applyRegisterStyle(*qApp, {1024, 600});
    QPushButton button("ОК");
    TalloLineEdit edit;
    for (QWidget* target : {static_cast<QWidget*>(&button), static_cast<QWidget*>(&edit)}) {
        target->ensurePolished();
        EXPECT_GE(target->minimumSizeHint().height(), 44);
        EXPECT_GE(target->minimumSizeHint().width(), 44);
    }
}

TEST_F(RegisterStyleTest, focusedControls_lookDifferent)
{
    applyRegisterStyle(*qApp, {1024, 600});
    QWidget window;
    QPushButton plain("Отмена", &window);
    QPushButton primary("ОК", &window);
    QPushButton idle("Выбрать", &window);
    QPushButton idlePrimary("Продать", &window);
    TalloLineEdit edit(&window);
    TalloTableView table(&window);
    QScrollArea area(&window);
    QPushButton elsewhere(&window);
    primary.setProperty("primary", true);
    idle.setProperty("idle", true);
    idlePrimary.setProperty("primary", true);
    idlePrimary.setProperty("idle", true);
    area.setFocusPolicy(Qt::StrongFocus);
    const std::pair<const char*, QWidget*> controls[] = {
        {"button", &plain},     {"primary button", &primary},
        {"idle button", &idle}, {"idle primary button", &idlePrimary},
        {"input", &edit},       {"table", &table},
        {"scroll area", &area},
    };
    int top = 0;
    for (const auto& [name, control] : controls) {
        control->setGeometry(0, 50 * top++, 120, 40);
    }
    elsewhere.setGeometry(0, 50 * top, 120, 40);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto& [name, control] : controls) {
        elsewhere.setFocus();
        const QImage without = control->grab().toImage();
        control->setFocus();
        EXPECT_NE(without.pixelColor(1, 20), control->grab().toImage().pixelColor(1, 20)) << name;
    }
}

} // namespace
