// SPDX-License-Identifier: MIT
#include "tr.h"
#include "basicexception.h"

#include <QCoreApplication>
#include <QMetaType>
#include <QTranslator>
#include <QVariant>

#include <gtest/gtest.h>

using tr::Tr;

namespace
{

/// A message catalogue with one text.
class OneTextCatalogue : public QTranslator
{
public:
    OneTextCatalogue(const char* id, const QString& text)
        : m_id(id)
        , m_text(text)
    {
        QCoreApplication::installTranslator(this);
    }
    ~OneTextCatalogue() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* id, const char*, int) const override
    {
        return m_id == id ? m_text : QString();
    }

private:
    QByteArray m_id;
    QString m_text;
};

struct FilledText {
    const char* name;
    QString text;
    QStringList values;
    QString shown;
};

void PrintTo(const FilledText& row, std::ostream* out)
{
    *out << row.name;
}

class TrPlaceholders : public ::testing::TestWithParam<FilledText>
{
};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST_P(TrPlaceholders, valuesGiven_shownTextIsFilledOnce)
{
    Tr message(text("someKey"), GetParam().text);
    for (const QString& value : GetParam().values) {
        message = message.arg(value);
    }
    EXPECT_EQ(message.ui(), GetParam().shown);
    EXPECT_EQ(message.text(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TrPlaceholders,
    ::testing::Values(FilledText{"noPlaceholder", text("Чек закрыт"), {text("x")}, text("Чек закрыт")},
                      FilledText{"one", text("Карта %1"), {text("1100")}, text("Карта 1100")},
                      FilledText{"otherOrder", text("%2 из %1"), {text("5"), text("2")}, text("2 из 5")},
                      FilledText{"sameTwice", text("%1 и %1"), {text("а")}, text("а и а")},
                      FilledText{"valueHoldsPlaceholder", text("%1, %2"), {text("%2"), text("%1")}, text("%2, %1")},
                      FilledText{"percentSignsAround", text("50%1%"), {text("0")}, text("500%")},
                      FilledText{"doublePercent", text("%%1"), {text("7")}, text("%7")},
                      FilledText{"loneAndLastPercent", text("% 1 %"), {text("7")}, text("% 1 %")},
                      FilledText{"withoutValueStays", text("%1 %2"), {text("а")}, text("а %2")},
                      FilledText{"noValuesAtAll", text("%1"), {}, text("%1")},
                      FilledText{"zeroIsNone", text("%0 %01"), {text("а")}, text("%0 %01")},
                      FilledText{"twoDigitsAreOneNumber", text("%10"), {text("а")}, text("%10")},
                      FilledText{"thirdDigitIsText",
                                 text("%101"),
                                 {text("1"), text("2"), text("3"), text("4"), text("5"), text("6"), text("7"),
                                  text("8"), text("9"), text("десять")},
                                 text("десять1")},
                      FilledText{"emptyValue", text("<%1>"), {QString()}, text("<>")},
                      FilledText{"emptyText", QString(), {text("а")}, QString()},
                      FilledText{"arabicDigitIsNoPlaceholder", text("%١"), {text("а")}, text("%١")}),
    [](const auto& row) { return row.param.name; });

TEST(Tr, ninetyNineValues_lastIsFilled)
{
    Tr message(text("k"), text("%99|%9"));
    for (int value = 1; value <= 99; ++value) {
        message = message.arg(QString::number(value * 2));
    }
    EXPECT_EQ(message.ui(), text("198|18"));
}

TEST(Tr, catalogueHasKey_itsTextIsShownWithValues)
{
    const OneTextCatalogue catalogue("cardUnknown", text("Card %1 is not known"));
    EXPECT_EQ(Tr(text("cardUnknown"), text("Карта %1 неизвестна")).arg(text("7")).ui(), text("Card 7 is not known"));
    EXPECT_EQ(Tr(text("otherKey"), text("Другое")).ui(), text("Другое"));
}

TEST(Tr, catalogueHasEmptyText_defaultIsShown)
{
    const OneTextCatalogue catalogue("cardUnknown", QString());
    EXPECT_EQ(Tr(text("cardUnknown"), text("Карта неизвестна")).ui(), text("Карта неизвестна"));
}

TEST(Tr, undefinedKey_catalogueIsNotAsked)
{
    const OneTextCatalogue catalogue("undefined", text("wrong"));
    EXPECT_EQ(Tr(tr::undefined, text("Текст сервера")).ui(), text("Текст сервера"));
}

TEST(Tr, default_isEmpty)
{
    EXPECT_EQ(Tr().ui(), QString());
    EXPECT_EQ(Tr().key(), QString());
    EXPECT_EQ(Tr(), Tr(QString(), QString()));
}

TEST(Tr, arg_leavesTheOriginal)
{
    const Tr original(text("k"), text("%1"));
    const Tr filled = original.arg(text("x"));
    EXPECT_EQ(original.ui(), text("%1"));
    EXPECT_EQ(filled.ui(), text("x"));
    EXPECT_FALSE(original == filled);
}

TEST(Tr, equality_comparesKeyTextAndValues)
{
    const Tr base(text("k"), text("%1"));
    EXPECT_TRUE(base.arg(text("x")) == base.arg(text("x")));
    EXPECT_FALSE(base.arg(text("x")) == base.arg(text("y")));
    EXPECT_FALSE(base == Tr(text("l"), text("%1")));
    EXPECT_FALSE(base == Tr(text("k"), text("%2")));
}

TEST(Tr, inVariant_travelsUnderItsName)
{
    const Tr message = Tr(text("k"), text("%1")).arg(text("x"));
    const QVariant variant = QVariant::fromValue(message);
    EXPECT_STREQ(variant.metaType().name(), "tr::Tr");
    EXPECT_EQ(variant.value<Tr>(), message);
    EXPECT_TRUE(variant == QVariant::fromValue(message));
}

TEST(BasicException, thrown_carriesTextForCashierAndUtf8)
{
    try {
        throw BasicException(Tr(text("k"), text("Карта %1")).arg(text("%2")));
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Карта %2");
        const auto* exception = dynamic_cast<const BasicException*>(&error);
        ASSERT_NE(exception, nullptr);
        EXPECT_EQ(exception->tr().key(), text("k"));
        EXPECT_EQ(exception->tr().ui(), text("Карта %2"));
    }
}
