// SPDX-License-Identifier: MIT
#include "actionfactory.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using control::Action;

namespace
{

const QString number = u"positionNumber"_s;
const QString result = u"result"_s;

} // namespace

TEST(Action, fresh_hasTypeAndNothingElse)
{
    const Action action(control::RemovePosition);
    EXPECT_EQ(action.getType(), 202);
    EXPECT_TRUE(action.getArguments().isEmpty());
    EXPECT_TRUE(action.getAllowContexts().isEmpty());
    EXPECT_FALSE(action.value(number).isValid());
    EXPECT_EQ(action.value(number, -1).toInt(), -1);
}

TEST(Action, unknownType_isKept)
{
    EXPECT_EQ(Action(control::EActionType(4711)).getType(), 4711);
}

TEST(Action, insertTwice_replaces)
{
    Action action;
    action.insert(number, 1);
    action.insert(number, 2);
    EXPECT_EQ(action.getArguments().size(), 1);
    EXPECT_EQ(action.value(number).toInt(), 2);
}

TEST(Action, insertAfterAppends_replacesAllAtThePlaceOfTheFirst)
{
    Action action;
    action.appendArgument(1, number);
    action.appendArgument(u"x"_s, result);
    action.appendArgument(2, number);
    action.insert(number, 3);
    const QList<std::pair<QString, QVariant>> expected{{number, 3}, {result, u"x"_s}};
    EXPECT_EQ(action.getArguments(), expected);
}

TEST(Action, appendSameName_keepsBothAndGivesTheLast)
{
    Action action;
    action.appendArgument(1, number);
    action.appendArgument(2, number);
    EXPECT_EQ(action.getArguments().size(), 2);
    EXPECT_EQ(action.value(number).toInt(), 2);
    EXPECT_EQ(action.toMap(), (QVariantMap{{number, 2}}));
}

TEST(Action, invalidValue_isAnArgumentLikeOthers)
{
    Action action;
    action.insert(number, QVariant());
    EXPECT_EQ(action.getArguments().size(), 1);
    EXPECT_FALSE(action.value(number, 5).isValid());
}

TEST(Action, copy_isIndependent)
{
    Action original;
    original.insert(number, 1);
    Action copy = original;
    EXPECT_TRUE(copy == original);
    copy.insert(number, 2);
    copy.setAllowContexts({EContext::Idle});
    EXPECT_EQ(original.value(number).toInt(), 1);
    EXPECT_TRUE(original.getAllowContexts().isEmpty());
    EXPECT_FALSE(copy == original);
}

TEST(Action, equality_looksAtTypeOrderAndContexts)
{
    Action oneTwo;
    oneTwo.appendArgument(1, number);
    oneTwo.appendArgument(2, result);
    Action twoOne;
    twoOne.appendArgument(2, result);
    twoOne.appendArgument(1, number);
    EXPECT_FALSE(oneTwo == twoOne);
    EXPECT_FALSE(Action(control::Subtotal) == Action(control::CancelDocument));
    Action restricted;
    restricted.setAllowContexts({EContext::Idle});
    EXPECT_FALSE(restricted == Action());
}

TEST(Action, inVariant_comesBackEqual)
{
    Action action(control::VoidDocument);
    action.insert(number, 1);
    EXPECT_TRUE(QVariant::fromValue(action).value<Action>() == action);
}

TEST(ActionFactory, create_makesABareActionOfThatType)
{
    EXPECT_TRUE(Singleton<control::ActionFactory>::get()->create(control::SelectGoods) == Action(control::SelectGoods));
}
