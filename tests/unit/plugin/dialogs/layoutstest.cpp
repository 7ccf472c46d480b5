// SPDX-License-Identifier: MIT
// The forms on the screen: nothing is cut off on any screen, in any mode and language, with any data.
#include "accessiblenames.h"
#include "cashierslanguage.h"
#include "dialogforms.h"
#include "electronicprescriptionchoiceform.h"
#include "electronicprescriptionconfirmdispenseform.h"
#include "electronicprescriptionform.h"
#include "looks.h"
#include "styledscreen.h"
#include "tallotableview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <cstdlib>

#include <optional>

namespace
{

struct Case {
    QSize screen;
    bool isTouch;
    bool isExtreme;
    const char* language;
};

class Layouts : public DialogForms, public ::testing::WithParamInterface<Case>
{
protected:
    Layouts()
    {
        setTouchMode(GetParam().isTouch);
        styled.emplace(GetParam().screen);
    }
    /// The ordinary name, or 10,000 characters without a blank.
    static QString name(const QString& ordinary)
    {
        return GetParam().isExtreme ? QString(10000, QChar(u'Ж')) : ordinary;
    }

    static QSharedPointer<Patient> shownPatient()
    {
        return QSharedPointer<Patient>::create(name("Рябинина Ольга Петровна"), QDate(1961, 5, 4));
    }

    static QSharedPointer<ElectronicPrescription> shownPrescription()
    {
        const auto shown = prescription(name("Инсулин гларгин"));
        shown->setInnCode("2104512");
        shown->setTradeName(name("Лантус СолоСтар"));
        shown->setTradeNameCode("100234");
        shown->setPrescriptionDate(QDate(2024, 3, 1));
        shown->setExpirationDate(QDate(2024, 4, 30));
        shown->setPractitionerName(name("Осокин Лев Андреевич"));
        shown->setPayByPatientSumFactor(0.5);
        shown->setDoseQuantity(30);
        shown->setInstructions(name("Подкожно по 10 единиц один раз в день вечером"));
        shown->setPayingElectronicPrescriptionOrganization(
            QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", name("Фонд здоровья")));
        shown->setDictCode("2104512");
        shown->setDictName(name("Инсулин гларгин, раствор для подкожного введения 100 ЕД/мл"));
        for (int month = 0; month < (GetParam().isExtreme ? 12 : 2); ++month) {
            shown->addMedicationDispenseDate(QDate(2023, 1, 5).addMonths(month));
        }
        return shown;
    }

    /// Shows a form as large as the screen and waits until its layout is done.
    static void openOnScreen(BasicForm& form)
    {
        form.rootWidget()->resize(GetParam().screen);
        open(form);
        QApplication::processEvents();
        ASSERT_EQ(form.rootWidget()->size(), GetParam().screen) << "the form asks for more than the screen";
    }

    /// Outside scroll areas every control and label is within its parent and not smaller than its contents.
    static void expectNothingCutOff(const BasicForm& form)
    {
        for (const auto* widget : form.rootWidget()->findChildren<QWidget*>()) {
            if (!widget->isVisible() || !isLeaf(*widget)) {
                continue;
            }
            const QRect parent = widget->parentWidget()->rect();
            EXPECT_TRUE(parent.contains(widget->geometry())) << widget->objectName().toStdString();
            const auto* label = qobject_cast<const QLabel*>(widget);
            if (label) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->objectName().toStdString();
            }
            if (qobject_cast<const QAbstractButton*>(widget)) {
                EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
                EXPECT_GE(widget->height(), GetParam().isTouch ? 44 : 0) << widget->objectName().toStdString();
            }
        }
    }

    static void expectReadableAndHittable(const BasicForm& form)
    {
        EXPECT_EQ(looks::faint(*form.rootWidget()).join(u' ').toStdString(), "");
        if (GetParam().isTouch) {
            EXPECT_EQ(looks::hardToHit(*form.rootWidget()).join(u' ').toStdString(), "");
        }
    }

    /// Scroll areas scroll up and down only: their contents are as wide as the view.
    static void expectNoSidewaysScrolling(const BasicForm& form)
    {
        for (const auto* area : form.rootWidget()->findChildren<QScrollArea*>()) {
            EXPECT_LE(area->widget()->width(), area->viewport()->width()) << area->objectName().toStdString();
        }
    }

    static void expectBalancedColumns(const BasicForm& form)
    {
        const auto bottom = [&form](const char* name) {
            const auto* label = widget<QLabel>(form, name);
            return label->mapTo(form.rootWidget(), label->rect().bottomLeft()).y();
        };
        const int lines = 5 * widget<QLabel>(form, "instructionsValueLabel")->fontMetrics().lineSpacing();
        EXPECT_LE(std::abs(bottom("instructionsValueLabel") - bottom("medicationDispenseDatesValueLabel")), lines);
    }

    /// Where the label's row begins, in the coordinates of the form.
    static int topOf(const BasicForm& form, const char* name)
    {
        const auto* label = widget<QLabel>(form, name);
        return label->mapTo(form.rootWidget(), QPoint()).y();
    }
    /// Both columns go down to the last quarter of the room, however large the screen is.
    static void expectRoomUsed(const BasicForm& form)
    {
        const auto* area = widget<QScrollArea>(form, "detailsScrollArea");
        const int lastQuarter = area->mapTo(form.rootWidget(), QPoint()).y() + area->height() * 3 / 4;
        EXPECT_GE(topOf(form, "instructionsLabel") + 3 * area->fontMetrics().lineSpacing(), lastQuarter);
        EXPECT_GE(topOf(form, "medicationDispenseDatesLabel") + 3 * area->fontMetrics().lineSpacing(), lastQuarter);
    }

    static void expectGroundBehindTheDiscountOnly(const BasicForm& form)
    {
        const auto* discount = widget<QLabel>(form, "discountValueLabel");
        const int number = discount->fontMetrics().horizontalAdvance(discount->text());
        EXPECT_GE(discount->width(), number);
        EXPECT_LE(discount->width(), number + 4);
        EXPECT_LE(discount->height(), discount->fontMetrics().lineSpacing() + 4);
    }

private:
    const CashiersLanguage m_language{GetParam().language, {":/translations/registerplatform", PLUGIN_CATALOGUES}};

    static bool isLeaf(const QWidget& widget)
    {
        if (qobject_cast<const QLineEdit*>(widget.parentWidget())) {
            return false; // the button that clears it, which it places itself
        }
        return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
               qobject_cast<const QLineEdit*>(&widget);
    }

    std::optional<StyledScreen> styled; ///< made when the mode is configured
};

std::string caseName(const ::testing::TestParamInfo<Case>& info)
{
    return std::to_string(info.param.screen.width()) + (info.param.isTouch ? "_touch" : "_keyboard") +
           (info.param.isExtreme ? "_longTexts_" : "_ordinaryTexts_") + info.param.language;
}

constexpr QSize screens[] = {{1024, 600}, {1280, 800}, {1920, 1080}};

std::vector<Case> cases()
{
    std::vector<Case> all;
    for (const auto& screen : screens) {
        for (const bool isTouch : {false, true}) {
            for (const bool isExtreme : {false, true}) {
                for (const char* language : {"ru", "en"}) {
                    all.push_back({screen, isTouch, isExtreme, language});
                }
            }
        }
    }
    return all;
}

} // namespace

TEST_P(Layouts, choiceForm_isWholeOnTheScreen)
{
    ElectronicPrescriptionChoiceForm form({{shownPrescription()}, "active", shownPatient(), false}, nullptr);
    openOnScreen(form);
    expectNothingCutOff(form);
    expectNoSidewaysScrolling(form);
    expectReadableAndHittable(form);
    EXPECT_EQ(controlsWithoutName(*form.rootWidget()), "");
    const auto* table = widget<TalloTableView>(form, "electronicPrescriptionsTableView");
    EXPECT_GE(table->viewport()->height(), 5 * table->rowHeight(0)) << "there is room for five rows";
    if (!GetParam().isExtreme) {
        for (const char* name : {"practitionerNameValueLabel", "organizationValueLabel", "patientNameValueLabel"}) {
            const auto* label = widget<QLabel>(form, name);
            EXPECT_EQ(label->visibleRegion().boundingRect(), label->rect()) << name << " is not in sight";
        }
    }
}

TEST_P(Layouts, choiceFormWithoutAMatch_hintIsWhole)
{
    ElectronicPrescriptionChoiceForm form({{shownPrescription()}, "active", shownPatient(), false}, nullptr);
    openOnScreen(form);
    widget<QLineEdit>(form, "medicineNameLineEdit")
        ->setText(GetParam().isExtreme ? QString(10000, QChar(u'Ы')) : QString("нет такого"));
    QApplication::processEvents();
    ASSERT_EQ(form.rootWidget()->size(), GetParam().screen);
    EXPECT_TRUE(widget<QLabel>(form, "noMatchLabel")->isVisible());
    expectNothingCutOff(form);
}

TEST_P(Layouts, detailsForm_isWholeOnTheScreen)
{
    ElectronicPrescriptionForm form({shownPrescription(), "active", shownPatient()}, nullptr);
    openOnScreen(form);
    expectNothingCutOff(form);
    expectNoSidewaysScrolling(form);
    expectReadableAndHittable(form);
    EXPECT_EQ(controlsWithoutName(*form.rootWidget()), "");
    if (!GetParam().isExtreme) {
        EXPECT_EQ(widget<QScrollArea>(form, "detailsScrollArea")->verticalScrollBar()->maximum(), 0)
            << "ordinary details need no scrolling";
        expectBalancedColumns(form);
        expectGroundBehindTheDiscountOnly(form);
        expectRoomUsed(form);
        const int type = widget<QLabel>(form, "innNameLabel")->fontInfo().pixelSize();
        const int text = widget<QPushButton>(form, "cancelButton")->fontInfo().pixelSize();
        EXPECT_EQ(type > text, GetParam().screen.width() > 1024) << "details grow with the screen";
    }
}

TEST_P(Layouts, detailsFormWithUnknownFields_leavesNoGapForThem)
{
    const auto shown = prescription("Инсулин гларгин");
    shown->setTradeName("Лантус СолоСтар");
    ElectronicPrescriptionForm form({shown, "active", nullptr}, nullptr);
    openOnScreen(form);
    const int row = topOf(form, "tradeNameCodeLabel") - topOf(form, "tradeNameLabel");
    const int overTheHidden = topOf(form, "tradeNameLabel") - topOf(form, "innCodeLabel");
    EXPECT_LE(overTheHidden, row + 2 * widget<QLabel>(form, "tradeNameLabel")->fontMetrics().lineSpacing());
    expectNothingCutOff(form);
}

TEST_P(Layouts, confirmDispenseForm_isWholeAndNoLargerThanTheSmallestScreen)
{
    ElectronicPrescriptionConfirmDispenseForm form(ElectronicPrescriptionConfirmDispenseParams(shownPrescription()),
                                                   nullptr);
    open(form);
    form.rootWidget()->resize(form.rootWidget()->sizeHint()); // adjustSize() asks the test's own screen
    QApplication::processEvents();
    EXPECT_LE(form.rootWidget()->width(), 1024);
    EXPECT_LE(form.rootWidget()->height(), 600);
    expectNothingCutOff(form);
    expectNoSidewaysScrolling(form);
    expectReadableAndHittable(form);
    EXPECT_EQ(controlsWithoutName(*form.rootWidget()), "");
    if (!GetParam().isExtreme) {
        const auto* area = widget<QScrollArea>(form, "confirmDispenseScrollArea");
        EXPECT_EQ(area->viewport()->height(), area->widget()->heightForWidth(area->viewport()->width()))
            << "no void below the question and the doses";
    }
}

INSTANTIATE_TEST_SUITE_P(, Layouts, ::testing::ValuesIn(cases()), caseName);
