// SPDX-License-Identifier: MIT
// The form on every screen, in both modes and languages, with any data: nothing is cut off.
#include "accessiblenames.h"
#include "cashierslanguage.h"
#include "dispensechoicefixture.h"
#include "looks.h"
#include "styledscreen.h"
#include "wrappedlabel.h"

#include <QHeaderView>

#include <optional>

namespace
{

enum class Data { Ordinary, Long, Hostile, None, Fifty };

struct Case {
    QSize screen;
    bool isTouch;
    Data data;
    const char* language;
};

QString longName()
{
    return QString(10000, u'Ж');
}

QString hostile()
{
    return u"<h1>Аптека</h1>\u202e\u2066\n%1\t"_s + QString(200, u'W') + u"</td><br>"_s;
}

class DispenseChoiceLayout : public DispenseChoiceFixture, public ::testing::WithParamInterface<Case>
{
protected:
    DispenseChoiceLayout()
    {
        setTouchMode(GetParam().isTouch);
        styled.emplace(GetParam().screen);
    }
    static DispenseChoiceParams everywhere(const QString& text)
    {
        return {text, text, u"10"_s, u"29.02.2024 12:30:05"_s, {{text, text, text, text}, {text, text, text, text}}};
    }

    static DispenseChoiceParams params()
    {
        switch (GetParam().data) {
        case Data::Ordinary:
            return twoDispenses();
        case Data::Long:
            return everywhere(longName());
        case Data::Hostile:
            return everywhere(hostile());
        case Data::None:
            return noDispenses();
        case Data::Fifty:
            break;
        }
        DispenseChoiceParams many = twoDispenses();
        many.dispenses = QList<DispenseChoiceRow>(50, many.dispenses.first());
        return many;
    }

    static bool isOrdinary() { return GetParam().data != Data::Long && GetParam().data != Data::Hostile; }

    /// Shows the form as large as the screen and waits until its layout is done.
    static void openOnScreen(BasicForm& form)
    {
        form.rootWidget()->resize(GetParam().screen);
        form.rootWidget()->show();
        form.show();
        QApplication::processEvents();
        ASSERT_EQ(form.rootWidget()->size(), GetParam().screen) << "the form asks for more than the screen";
    }

    /// A name may be elided; numbers, questions and hints are whole.
    static void expectWholeTexts(const QWidget& form)
    {
        for (const auto* label : form.findChildren<WrappedLabel*>()) {
            const bool mayBeCut = !isOrdinary() && label->maximumHeight() < QWIDGETSIZE_MAX;
            EXPECT_TRUE(mayBeCut || !label->isCut()) << qPrintable(label->objectName());
            EXPECT_TRUE(form.rect().contains(label->geometry())) << qPrintable(label->objectName());
        }
    }

    static void expectWholeCells(const TalloTableView& view)
    {
        for (int column = 0; column < view.model()->columnCount(); ++column) {
            const int caption = view.horizontalHeader()->sectionSizeHint(column);
            EXPECT_GE(view.columnWidth(column), caption) << column;
            const QString text = view.model()->index(0, column).data().toString();
            const bool isSpanned = view.columnSpan(0, column) > 1;
            EXPECT_TRUE(!isOrdinary() || isSpanned ||
                        view.columnWidth(column) >= view.fontMetrics().horizontalAdvance(text))
                << qPrintable(text);
        }
    }

    static void expectRoomForRows(const TalloTableView& view)
    {
        EXPECT_GE(view.viewport()->height(), 5 * view.rowHeight(0));
        EXPECT_GE(view.rowHeight(0), GetParam().isTouch ? 44 : 0);
        EXPECT_LE(view.horizontalHeader()->length(), view.viewport()->width()) << "no scrolling sideways";
    }

    const CashiersLanguage language{GetParam().language,
                                    {u":/translations/registerplatform"_s, QString::fromUtf8(RECOVERY_CATALOGUES)}};
    std::optional<StyledScreen> styled; ///< made when the mode is configured
};

const char* nameOf(Data data)
{
    switch (data) {
    case Data::Ordinary:
        return "ordinary";
    case Data::Long:
        return "longNames";
    case Data::Hostile:
        return "hostileTexts";
    case Data::None:
        return "noDispenses";
    case Data::Fifty:
        break;
    }
    return "fiftyRows";
}

std::string caseName(const ::testing::TestParamInfo<Case>& info)
{
    return std::to_string(info.param.screen.width()) + (info.param.isTouch ? "_touch_" : "_keyboard_") +
           nameOf(info.param.data) + '_' + info.param.language;
}

std::vector<Case> cases()
{
    std::vector<Case> all;
    for (const QSize screen : {QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)}) {
        for (const bool isTouch : {false, true}) {
            for (const Data data : {Data::Ordinary, Data::Long, Data::Hostile, Data::None, Data::Fifty}) {
                for (const char* language : {"ru", "en"}) {
                    all.push_back({screen, isTouch, data, language});
                }
            }
        }
    }
    return all;
}

} // namespace

TEST_P(DispenseChoiceLayout, form_isWholeOnTheScreen)
{
    const auto form = DispenseChoiceFormCreator().create(
        Event(DispenseChoiceParams::eventCode).addArgument(u"params"_s, QVariant::fromValue(params())));
    ASSERT_TRUE(form);
    openOnScreen(*form);
    QWidget& root = *form->rootWidget();
    expectWholeTexts(root);
    expectWholeCells(*table(root));
    expectRoomForRows(*table(root));
    EXPECT_EQ(looks::faint(root).join(u' ').toStdString(), "");
    EXPECT_EQ(controlsWithoutName(root), "");
    if (isOrdinary()) {
        EXPECT_EQ(looks::cutOff(root).join(u' ').toStdString(), "");
    }
    if (GetParam().isTouch) {
        EXPECT_EQ(looks::hardToHit(root).join(u' ').toStdString(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(, DispenseChoiceLayout, ::testing::ValuesIn(cases()), caseName);
