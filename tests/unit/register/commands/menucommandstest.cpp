// SPDX-License-Identifier: MIT
#include "commandfixture.h"
#include "registeraction.h"
#include "shownmessages.h"

using namespace Qt::StringLiterals;

class MenuCommandsTest : public CommandFixture
{
};

TEST_F(MenuCommandsTest, keyExplained_namesTheKeyAndWhatIsMissing)
{
    const QVariantMap key{{u"text"_s, u"Рецепт %1"_s}};
    const ShownMessages messages;
    run(registeraction::explainKey, key);
    till->open();
    run(registeraction::explainKey, key);
    ASSERT_EQ(messages.all().size(), 2);
    EXPECT_TRUE(messages.all().at(0).text.startsWith(u"«Рецепт %1» работает при открытом чеке"_s));
    EXPECT_TRUE(messages.all().at(1).text.startsWith(u"«Рецепт %1» сейчас недоступно"_s));
}
