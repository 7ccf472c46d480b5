// SPDX-License-Identifier: MIT
#include "packsquestion.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int usual = AddedPacks::usual;
const QString none;
const QString stock = u"beyondStockQuestion"_s;
const QString gone = u"outOfStockQuestion"_s;
const QString many = u"manyPacksQuestion"_s;

struct Row {
    const char* name;
    std::optional<int> stock;
    double before;
    double after;
    int entered;
    QString asked; ///< the key of the question
};

class PacksQuestion : public ::testing::TestWithParam<Row>
{
};

TEST_P(PacksQuestion, isAskedWhenThePacksDoNotGoWithoutSaying)
{
    const Row& row = GetParam();
    const auto question =
        AddedPacks{.name = u"x"_s, .stock = row.stock, .before = row.before, .after = row.after, .entered = row.entered}
            .question();
    EXPECT_EQ(question ? question->text.key() : none, row.asked);
}

const Row rows[] = {
    {"onePack", 5, 0, 1, 1, none},
    {"theLastPack", 5, 4, 5, 1, none},
    {"onePackTooMany", 5, 5, 6, 1, stock},
    {"packsTooManyAtOnce", 5, 0, 6, 6, stock},
    {"oneMoreThanIsThereAgain", 5, 6, 7, 1, stock},
    {"outOfStock", 0, 0, 1, 1, gone},
    {"stockBelowZero", -3, 0, 1, 1, gone},
    {"fewerPacksThanBefore", 5, 9, 7, 7, none},
    {"asManyAsBefore", 5, 9, 9, 9, none},
    {"usual", 100, 0, usual, usual, none},
    {"moreThanUsual", 100, 0, usual + 1, usual + 1, many},
    {"moreThanUsualByAScan", 100, usual, usual + 1, 1, many},
    {"nextScanAfterThat", 100, usual + 1, usual + 2, 1, none},
    {"manyMoreAfterThat", 1000, usual + 1, 999, 999, many},
    {"fewerButStillMany", 1000, 999, 500, 500, none},
    {"manyAndMoreThanInStock", 100, 0, 999, 999, stock},
    {"unknownStock", std::nullopt, 0, 5, 5, none},
    {"unknownStockAndMany", std::nullopt, 0, 999, 999, many},
};

INSTANTIATE_TEST_SUITE_P(Rows, PacksQuestion, ::testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PacksQuestionText, saysWhatIsThereAndWhatItWouldBe)
{
    const AddedPacks packs{.name = u"Бинт %1"_s, .stock = 5, .before = 5, .after = 6};
    EXPECT_EQ(packs.question()->text.ui(), u"На остатке 5 уп., а в чеке будет 6:\nБинт %1\nВсё равно продать?"_s);
    const AddedPacks numerous{.name = u"Бинт %1"_s, .stock = 5000, .before = 0, .after = 999, .entered = 999};
    EXPECT_EQ(numerous.question()->text.ui(), u"В чеке будет 999 уп. товара:\nБинт %1\nКоличество верное?"_s);
}

} // namespace
